// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// Counters of one process at one moment.
struct ProcessCounters {
    /// CPU time in nanoseconds since the process started, ended threads included.
    std::uint64_t userTime = 0;
    /// Nanoseconds; 0 if the platform gives only the sum, which is then in userTime.
    std::uint64_t systemTime = 0;
    /// Memory of this process alone, in bytes.
    std::uint64_t physFootprint = 0;
};

/// The kernel's table of processes.
class ProcessTable {
  public:
    virtual ~ProcessTable() = default;

    /// The parent of a process; absent if it cannot be read.
    [[nodiscard]] virtual std::optional<ProcessId> parent(ProcessId process) const = 0;

    /// The process ids of the current user's processes, at most 4096 of them; those known to belong
    /// to another session of the user are left out.
    [[nodiscard]] virtual std::vector<ProcessId> allProcesses() const = 0;

    /// The path of a process's executable; absent if it may not be read.
    [[nodiscard]] virtual std::optional<std::string> executablePath(ProcessId process) const = 0;

    /// Binds the id to the process that has it now. Until that process is gone and the id is held
    /// again, existence and signals through this table refer to that process and to no later one
    /// with the same id. False if there is no such process.
    virtual bool hold(ProcessId process) = 0;

    /// Tells the process that hold() has bound the id to from every other one that ever has the
    /// same id; 0 for an id that is not held. Another number later means that the first process is
    /// gone.
    [[nodiscard]] virtual std::uint64_t heldProcess(ProcessId process) const = 0;

    /// Counters of a process; absent if it is gone or may not be read.
    [[nodiscard]] virtual std::optional<ProcessCounters> counters(ProcessId process) = 0;

    /// Names the processes whose counters will be read again; the table may close what it keeps
    /// open for others.
    virtual void retainCounters(const std::vector<ProcessId>& processes) = 0;

    /// Sends a signal as kill(2) does: 0 on success, -1 with errno set on failure. Signal 0 only
    /// tests. ESRCH means that the process is gone (a zombie counts as gone), EPERM that it may
    /// not be signalled or is protected.
    virtual std::int32_t sendSignal(ProcessId process, std::int32_t signal) = 0;
};

} // namespace calmora
