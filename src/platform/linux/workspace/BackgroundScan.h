// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/proc/ProcFiles.h"
#include "platform/linux/workspace/ActivationRules.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace calmora {

class InstalledApplications;
class ProcessReader;

/// Finds the processes that were started as installed applications in our session, leaving out the
/// user's other sessions. Each process is read when first seen and, while young, again at growing
/// intervals if its name changed: launcher scripts replace their program. Main thread.
class BackgroundScan {
  public:
    /// `reader` must outlive this object.
    explicit BackgroundScan(const ProcessReader& reader) : reader_(reader) {}

    /// Checks all processes; where none was started or has ended since the last scan, only those
    /// that are due. Returns whether another candidate was found or one has ended. `display` is
    /// WindowSystem::displayName(); our Wayland compositor is that of our environment. Without
    /// either, any will do. Cost: 1 µs per known process.
    bool scan(const InstalledApplications& installed, const std::string& display);

    /// Forgets all results, because the installed applications changed.
    void forget();

    /// The background applications of the last scan(), see topmostAgents().
    [[nodiscard]] std::vector<ProcessId> agents(const std::set<ProcessId>& applications) const;

  private:
    struct Known {
        /// Inode of the process's folder; a reused id has another one.
        std::uint64_t inode = 0;
        /// In clock ticks since boot, as nextLook. Of another user's process: when it was seen.
        std::uint64_t startTime = 0;
        std::uint64_t nextLook = 0;
        std::string comm;
        AgentCandidate candidate;
        bool isOurs = false;
        bool isSettled = false;
        /// The last list() that it was in.
        std::uint64_t list = 0;
    };

    /// Makes `known_` the processes of now. Returns whether a candidate has ended.
    bool list();
    /// Returns whether the candidate changed.
    bool look(ProcessId process, Known& known, const InstalledApplications& installed,
              const std::string& display, std::uint64_t now) const;
    void read(ProcessId process, Known& known, const InstalledApplications& installed,
              const std::string& display) const;

    const ProcessReader& reader_;
    std::map<ProcessId, Known> known_;
    /// Before the last list().
    std::optional<TaskTurnover> turnover_;
    std::uint64_t listedAt_ = 0;
    std::uint64_t lists_ = 0;
};

} // namespace calmora
