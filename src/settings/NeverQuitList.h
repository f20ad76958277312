#pragma once

#include <set>
#include <span>
#include <string>
#include <vector>

namespace calmora {

class AppSettings;
class Workspace;

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

} // namespace calmora
