#pragma once

#include "platform/Image.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"

#include <optional>
#include <string>
#include <vector>

namespace calmora {

class AppSettings;

/// An entry of the never-quit list as the pane shows it.
struct ProtectedApp {
    /// As stored.
    std::string bundleIdentifier;
    std::string displayName;

    friend bool operator==(const ProtectedApp&, const ProtectedApp&) = default;
};

/// The name of an application, running or not: from the catalogue, else from the installed
/// application, else the identifier itself.
[[nodiscard]] std::string appDisplayName(const std::string& bundleIdentifier,
                                         const Workspace& workspace);

/// The icon of the installed application; absent if it is not installed.
[[nodiscard]] std::optional<Image> appIcon(const std::string& bundleIdentifier,
                                           const Workspace& workspace);

/// The never-quit list, sorted by name as the locale sorts.
[[nodiscard]] std::vector<ProtectedApp> protectedApps(const AppSettings& settings,
                                                      const Platform& platform);

/// The running applications that can be added to the never-quit list: regular ones with an
/// identifier, sorted by name as the locale sorts.
[[nodiscard]] std::vector<WorkspaceApplication> addAppCandidates(const Platform& platform);

} // namespace calmora
