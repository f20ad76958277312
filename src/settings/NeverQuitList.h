// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"

#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace calmora {

class AppSettings;

/// The never-quit list as it applies to running applications. A stored identifier matches itself
/// and the identifier under which the workspace lists that application, so that the name of a
/// desktop file protects too. Cheap: build it each time the list is applied.
class NeverQuitList {
  public:
    NeverQuitList(const AppSettings& settings, const Workspace& workspace);

    /// Whether an application with this identifier is protected.
    [[nodiscard]] bool contains(const std::string& bundleIdentifier) const;

    /// Whether a process that shows windows of several applications is protected: quitting one
    /// of them quits all.
    [[nodiscard]] bool contains(const std::string& bundleIdentifier,
                                std::span<const std::string> otherIdentifiers) const;

    /// The stored identifiers that protect an application; remove them all to end its protection.
    [[nodiscard]] std::vector<std::string> storedFor(const std::string& bundleIdentifier) const;

  private:
    const std::set<std::string>& stored_;
    const Workspace& workspace_;
    std::set<std::string> canonical_;
};

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
