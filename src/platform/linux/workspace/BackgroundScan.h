// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/workspace/ActivationRules.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace calmora {

class InstalledApplications;
class ProcessReader;

/// Finds the processes that were started as installed applications on our display, leaving out the
/// user's other sessions. Each process is read when first seen and, while young, again at growing
/// intervals if its name changed: launcher scripts replace their program. Main thread.
class BackgroundScan {
  public:
    /// `reader` must outlive this object.
    explicit BackgroundScan(const ProcessReader& reader) : reader_(reader) {}

    /// Checks all processes. `display` is WindowSystem::displayName(); empty means any display.
    /// Cost: about 1 µs per known process.
    void scan(const InstalledApplications& installed, const std::string& display);

    /// Forgets all results, because the installed applications changed.
    void forget() { known_.clear(); }

    /// The background applications of the last scan(), see topmostAgents().
    [[nodiscard]] std::vector<ProcessId> agents(const std::set<ProcessId>& applications) const;

  private:
    struct Known {
        /// Inode of the process's folder; a reused id has another one.
        std::uint64_t inode = 0;
        /// In clock ticks since boot, as nextLook.
        std::uint64_t startTime = 0;
        std::uint64_t nextLook = 0;
        std::string comm;
        AgentCandidate candidate;
        bool isSettled = false;
    };

    void look(ProcessId process, Known& known, const InstalledApplications& installed,
              const std::string& display, std::uint64_t now) const;

    const ProcessReader& reader_;
    std::map<ProcessId, Known> known_;
};

} // namespace calmora
