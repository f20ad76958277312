// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/proc/PidFd.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace calmora {

/// Detects window owners that have ended. A window can outlive its known process, whose id may then
/// be reused. Causes no wake-ups; has to be polled.
class OwnerWatch {
  public:
    /// Watches exactly these processes from now on.
    void follow(const std::set<ProcessId>& processes);

    /// Returns the ended processes and stops watching them. Cost: one system call.
    [[nodiscard]] std::vector<ProcessId> takeEnded();

  private:
    /// Absent for a process that ended before it could be watched.
    std::map<ProcessId, std::optional<PidFd>> owners_;
};

} // namespace calmora
