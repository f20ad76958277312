// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/proc/ProcFiles.h"
#include "platform/linux/proc/ProcessDetails.h"
#include "support/FileDescriptor.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace calmora {

/// Clock ticks per second in process start times.
[[nodiscard]] std::uint64_t ticksPerSecond();

/// Now, in clock ticks since boot, as process start times count.
[[nodiscard]] std::uint64_t ticksNow();

/// Reads /proc. Stateless. Results are absent or empty for a process that is gone or unreadable.
/// Main thread.
class ProcessReader {
  public:
    /// `root` is where the proc file system is mounted.
    explicit ProcessReader(const std::filesystem::path& root = "/proc");

    /// Every process with the inode of its folder, which a reused id does not share.
    [[nodiscard]] std::vector<std::pair<ProcessId, std::uint64_t>> folders() const;

    /// Equal values mean that no process was started and none has ended in between; absent if
    /// unknown. Cost: 2 µs.
    [[nodiscard]] std::optional<TaskTurnover> turnover() const;

    /// The owner of a process's folder: root for a process that hides from its own user.
    [[nodiscard]] std::optional<std::uint32_t> folderOwner(ProcessId process) const;

    /// Up to `limit` process ids of this user, ascending. Cost: about 1 µs per process.
    [[nodiscard]] std::vector<ProcessId> processesOf(std::uint32_t user, std::size_t limit) const;

    /// Cost: 4 µs.
    [[nodiscard]] std::optional<ProcessStat> stat(ProcessId process) const {
        return parseStat(read(process, "stat"));
    }

    /// Cost: 4 µs.
    [[nodiscard]] std::optional<ProcessStatus> status(ProcessId process) const {
        return parseStatus(read(process, "status"));
    }

    /// ProcessStat::startTime; absent for a process that is gone.
    [[nodiscard]] std::optional<std::uint64_t> startTime(ProcessId process) const;

    /// The parent; 0 without one.
    [[nodiscard]] ProcessId parent(ProcessId process) const;

    /// The program file without the " (deleted)" mark; absent also for a process that hides from
    /// its own user.
    [[nodiscard]] std::optional<std::string> executable(ProcessId process) const;

    /// The program file by a path that is unambiguous here. With another root, that is below
    /// /proc/PID/root; in a flatpak, below flatpakFolder() or /proc/PID/root. Absent as
    /// executable() is.
    [[nodiscard]] std::optional<std::string> executableFromHere(ProcessId process) const;

    /// The arguments; empty for a kernel thread.
    [[nodiscard]] std::vector<std::string> commandLine(ProcessId process) const {
        return parseCommandLine(read(process, "cmdline"));
    }

    /// Everything that identifies an application. Absent if the process is gone or its id was
    /// reused meanwhile. Cost: about 40 µs; 15 more for interpreters.
    [[nodiscard]] std::optional<ProcessDetails> details(ProcessId process) const;

    /// The cheap part of details(): arguments, program and control group. Empty for a process that
    /// is gone. Cost: about 10 µs.
    [[nodiscard]] ProcessDetails outline(ProcessId process) const;

    /// Whether the process has another root than we have, as in a sandbox; false if unknown.
    [[nodiscard]] bool hasOwnRoot(ProcessId process) const;

    /// Path below the root of the control groups, see parseCgroup().
    [[nodiscard]] std::string controlGroup(ProcessId process) const {
        return parseCgroup(read(process, "cgroup"));
    }

    /// The name alone; empty for a process that is gone. Cost: 1 µs.
    [[nodiscard]] std::string comm(ProcessId process) const;

    /// The X display from the process's environment without its screen: ":0". Empty if unset,
    /// absent if unreadable.
    [[nodiscard]] std::optional<std::string> display(ProcessId process) const;

    /// A variable of the process's initial environment. Empty if unset, absent if unreadable.
    [[nodiscard]] std::optional<std::string> environmentVariable(ProcessId process,
                                                                 std::string_view name) const;

    /// Opens a file of the process for reading, such as "statm"; empty on failure.
    [[nodiscard]] FileDescriptor open(ProcessId process, const char* file) const;

  private:
    [[nodiscard]] std::string read(ProcessId process, const char* file) const;
    [[nodiscard]] std::optional<std::string> linkTarget(ProcessId process, const char* link) const;
    [[nodiscard]] std::string readFlatpakInfo(ProcessId process) const;
    /// Finds the file that the arguments mean, from the other details.
    void readCommandFile(ProcessDetails& details) const;

    FileDescriptor root_;
    /// Device and inode of our "/".
    std::pair<std::uint64_t, std::uint64_t> ourRoot_;
};

} // namespace calmora
