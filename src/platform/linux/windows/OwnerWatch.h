#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/proc/PidFd.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace calmora {

/// Tells which owners of windows have ended. A window can outlive the process that it is known to
/// belong to, and that process's id can pass to a stranger. Wakes nobody up: it has to be asked.
class OwnerWatch {
  public:
    /// Follows these processes, as they are now, and no others.
    void follow(const std::set<ProcessId>& processes);

    /// Those that have ended; they are followed no longer.  Cost: one system call.
    [[nodiscard]] std::vector<ProcessId> takeEnded();

  private:
    /// Absent for a process that had ended before it could be followed.
    std::map<ProcessId, std::optional<PidFd>> owners_;
};

} // namespace calmora
