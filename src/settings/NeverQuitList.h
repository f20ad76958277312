#pragma once

#include <set>
#include <span>
#include <string>
#include <vector>

namespace calmora {

class AppSettings;
class Workspace;

/// The never-quit list as it applies to running applications. A stored identifier stands for
/// itself and for the one under which the workspace lists that application, so that an entry
/// written with a desktop file's name still protects. Built when the list is applied; cheap.
class NeverQuitList {
  public:
    NeverQuitList(const AppSettings& settings, const Workspace& workspace);

    /// Whether an application with this identifier is protected.
    [[nodiscard]] bool contains(const std::string& bundleIdentifier) const;

    /// Whether a process is protected that shows the windows of several applications: closing
    /// one of them closes all.
    [[nodiscard]] bool contains(const std::string& bundleIdentifier,
                                std::span<const std::string> otherIdentifiers) const;

    /// The stored identifiers that protect an application; removing them all ends its protection.
    [[nodiscard]] std::vector<std::string> storedFor(const std::string& bundleIdentifier) const;

  private:
    const std::set<std::string>& stored_;
    const Workspace& workspace_;
    std::set<std::string> canonical_;
};

} // namespace calmora
