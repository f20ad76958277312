// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "platform/Platform.h"
#include "platform/ProcessId.h"
#include "platform/Workspace.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace calmora {

/// Turns a snapshot of the running applications into the lists that the popover shows. Keeps
/// nothing between calls. Main thread.
class ProcessMonitor {
  public:
    explicit ProcessMonitor(Platform platform) : platform_(platform) {}

    /// The regular applications that have a name, sorted by it, without this program and, unless
    /// `includeFinder`, without the file manager. Equal names keep the workspace's order.
    [[nodiscard]] std::vector<AppInfo> getRunningApps(const ApplicationSnapshot& running,
                                                      bool includeFinder) const;

    /// The background applications that have a name and an identifier, sorted by name, without
    /// this program; each with the regular application that is its direct parent process.
    /// Cost: one look-up of a parent process per background application.
    [[nodiscard]] std::vector<AppInfo> getBackgroundApps(const ApplicationSnapshot& running) const;

    /// Folds the applications that have a parent application under one row per parent: the group
    /// rows by the parent's identifier, then the others in their order.
    [[nodiscard]] std::vector<AppInfo> groupBackgroundApps(std::vector<AppInfo> apps) const;

  private:
    /// The parent of a process; absent if it cannot be read.
    [[nodiscard]] std::optional<ProcessId> parentPID(ProcessId process) const;

    /// What applications contribute as parents, by process id: their identifier if they are
    /// regular.
    using Parents = std::unordered_map<ProcessId, std::optional<std::string>>;

    /// The identifier of the regular application that is the direct parent of a process.
    [[nodiscard]] std::optional<std::string> parentAppBundleID(ProcessId process,
                                                               const Parents& parents) const;

    void sortByName(std::vector<AppInfo>& apps) const;

    Platform platform_;
};

} // namespace calmora
