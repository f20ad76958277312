// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessTable.h"
#include "platform/linux/proc/ProcessMemory.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/proc/ProtectedProcesses.h"
#include "support/FileDescriptor.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace calmora {

/// The kernel's process table, from /proc, process CPU clocks and pidfds. Main thread.
///
/// CPU time comes from the process CPU clock: nanoseconds, including ended threads, user and system
/// time in one sum. It is reported as user time, since the kernel only estimates the split.
///
/// The footprint is anonymous memory plus swap, without file pages. Resident minus shared pages of
/// statm equal the anonymous ones and cost a fifth of status, so statm is read unless the machine
/// uses swap; then RssAnon + VmSwap of status is.
class LinuxProcessTable final : public ProcessTable {
  public:
    /// `memory` is shared with the lister of processes. `protection` is asked before each signal;
    /// so is `isSpared`, true for applications that may be asked to quit but not signalled (may be
    /// empty). The references must outlive the table.
    LinuxProcessTable(const ProcessReader& reader, ProcessMemory& memory,
                      ProtectedProcesses& protection, std::function<bool(ProcessId)> isSpared = {});

    [[nodiscard]] std::optional<ProcessId> parent(ProcessId process) const override;
    [[nodiscard]] std::vector<ProcessId> allProcesses() const override;

    [[nodiscard]] std::optional<std::string> executablePath(ProcessId process) const override {
        return reader_.executableFromHere(process);
    }

    bool hold(ProcessId process) override { return memory_.hold(process); }

    /// Its start time.
    [[nodiscard]] std::uint64_t heldProcess(ProcessId process) const override {
        return memory_.startTime(process).value_or(0);
    }

    [[nodiscard]] std::optional<ProcessCounters> counters(ProcessId process) override;
    void retainCounters(const std::vector<ProcessId>& processes) override;

    /// Sends through a pidfd that is opened before start time and protection are checked.
    std::int32_t sendSignal(ProcessId process, std::int32_t signal) override;

  private:
    /// The file with a process's footprint. An open file stays bound to its process and fails to
    /// read after its end, so it also reveals a reused id.
    struct CounterFile {
        FileDescriptor file;
        bool isStatus = false;
        /// Between samples; beyond the limit of open files it is opened for each.
        bool staysOpen = false;
        /// The file's number when its process was last seen to be the held one; 0 before. The files
        /// of a reused id have other numbers.
        std::uint64_t number = 0;
    };

    /// Reads the counters from the file and opens it if needed.
    [[nodiscard]] std::optional<ProcessCounters> read(ProcessId process, CounterFile& file);
    [[nodiscard]] bool isSwapInUse();
    [[nodiscard]] bool isOfHeldProcess(ProcessId process, CounterFile& file) const;

    const ProcessReader& reader_;
    ProcessMemory& memory_;
    ProtectedProcesses& protection_;
    std::function<bool(ProcessId)> isSpared_;
    std::unordered_map<ProcessId, CounterFile> retained_;
    std::size_t fileLimit_;
    std::uint64_t pageSize_;
    bool swapInUse_ = false;
    std::int64_t swapCheckedAt_ = -1;
};

} // namespace calmora
