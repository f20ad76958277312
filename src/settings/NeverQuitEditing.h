#pragma once

#include "platform/Image.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"

#include <optional>
#include <string>
#include <vector>

namespace calmora {

class AppSettings;

/// One entry of the never-quit list as it is shown.
struct ProtectedApp {
    /// As stored.
    std::string bundleIdentifier;
    std::string displayName;

    friend bool operator==(const ProtectedApp&, const ProtectedApp&) = default;
};

/// The name of an application that need not run: the catalogue's, else the installed
/// application's, else the identifier itself.
[[nodiscard]] std::string appDisplayName(const std::string& bundleIdentifier,
                                         const Workspace& workspace);

/// The icon of the installed application; absent where none is installed.
[[nodiscard]] std::optional<Image> appIcon(const std::string& bundleIdentifier,
                                           const Workspace& workspace);

/// The never-quit list by name, in the reader's order.
[[nodiscard]] std::vector<ProtectedApp> protectedApps(const AppSettings& settings,
                                                      const Platform& platform);

/// The running applications that can be put on the never-quit list: regular ones with an
/// identifier, by name, in the reader's order.
[[nodiscard]] std::vector<WorkspaceApplication> addAppCandidates(const Platform& platform);

} // namespace calmora
