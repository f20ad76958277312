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

/// The kernel's process table through /proc, process CPU clocks and pidfds. Main thread.
///
/// CPU time is the process CPU clock: nanoseconds, ended threads included, user and system time in
/// one sum, which is given as user time (the kernel's own split is only a guess from clock ticks).
///
/// The footprint is what the process alone costs: anonymous memory plus what was swapped out of
/// it; pages of files are left out. Resident minus shared pages of statm are the anonymous ones
/// and cost a fifth of status, so statm is read while the machine has nothing swapped out, and
/// RssAnon + VmSwap of status while it has.
class LinuxProcessTable final : public ProcessTable {
  public:
    /// `memory` is shared with whoever lists processes. `protection` is asked before each signal,
    /// and so is `isSpared`, which names applications that may be asked but not signalled; empty
    /// names none. The references must outlive the table.
    LinuxProcessTable(const ProcessReader& reader, ProcessMemory& memory,
                      ProtectedProcesses& protection, std::function<bool(ProcessId)> isSpared = {});

    [[nodiscard]] std::optional<ProcessId> parent(ProcessId process) const override;
    [[nodiscard]] std::vector<ProcessId> allProcesses() const override;
    [[nodiscard]] std::optional<std::string> executablePath(ProcessId process) const override;
    bool hold(ProcessId process) override;
    [[nodiscard]] std::optional<ProcessCounters> counters(ProcessId process) override;
    void retainCounters(const std::vector<ProcessId>& processes) override;

    /// Goes through a pidfd that is opened before start time and protection are checked.
    std::int32_t sendSignal(ProcessId process, std::int32_t signal) override;

  private:
    /// The file that the footprint of a process is read from. Once open it is bound to its process
    /// and cannot be read after its end, which also shows that the id was not reused.
    struct CounterFile {
        FileDescriptor file;
        bool isStatus = false;
    };

    /// Reads the counters through the file, which is opened first unless it is open.
    [[nodiscard]] std::optional<ProcessCounters> read(ProcessId process, CounterFile& file);
    [[nodiscard]] bool isSwapInUse();
    [[nodiscard]] bool isHeldProcess(ProcessId process) const;

    const ProcessReader& reader_;
    ProcessMemory& memory_;
    ProtectedProcesses& protection_;
    std::function<bool(ProcessId)> isSpared_;
    /// Kept open from sample to sample; one for each retained process, as far as the limit allows.
    std::unordered_map<ProcessId, CounterFile> retained_;
    std::size_t fileLimit_;
    std::uint64_t pageSize_;
    bool swapInUse_ = false;
    std::int64_t swapCheckedAt_ = -1;
};

} // namespace calmora
