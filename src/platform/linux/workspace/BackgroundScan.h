#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/workspace/ActivationRules.h"

#include <cstdint>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace calmora {

class InstalledApplications;
class ProcessReader;

/// Finds the processes that were started as an installed application on our display: the user may
/// have other sessions, and programs in them are not ours to list. Each process is read
/// when it is first seen and, while it is young and may still turn into another program as launcher
/// scripts do, again at growing intervals if its name has changed.
/// Main thread.
class BackgroundScan {
  public:
    /// `reader` outlives the scan.
    explicit BackgroundScan(const ProcessReader& reader) : reader_(reader) {}

    /// Looks at all processes again. `display` is WindowSystem::displayName(); empty takes those
    /// of any display. Cost: about 1 µs for each process that is known.
    void scan(const InstalledApplications& installed, const std::string& display);

    /// Forgets what processes were taken for, because the installed applications changed.
    void forget() { known_.clear(); }

    /// The background applications of the last scan(), see topmostAgents().
    [[nodiscard]] std::vector<ProcessId> agents(const std::set<ProcessId>& applications) const;

  private:
    struct Known {
        /// Number of the process's folder: a later process with the same id has another one.
        std::uint64_t inode = 0;
        /// In clock ticks since the machine started, as the next.
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
