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
#include <utility>
#include <vector>

namespace calmora {

/// How many clock ticks, as start times of processes are counted, make a second.
[[nodiscard]] std::uint64_t ticksPerSecond();

/// The present as start times of processes are counted: clock ticks since the machine started.
[[nodiscard]] std::uint64_t ticksNow();

/// Opens and reads what /proc tells of processes. Keeps no state of any process.
/// Everything is absent or empty for a process that is gone or may not be read. Main thread.
class ProcessReader {
  public:
    /// `root` is where the proc file system is mounted.
    explicit ProcessReader(const std::filesystem::path& root = "/proc");

    /// Process ids of the user with this id, ascending, at most `limit` of them.
    /// Cost: about 1 µs a process.
    [[nodiscard]] std::vector<ProcessId> processesOf(std::uint32_t user, std::size_t limit) const;

    /// Cost: 4 µs.
    [[nodiscard]] std::optional<ProcessStat> stat(ProcessId process) const;

    /// Cost: 4 µs.
    [[nodiscard]] std::optional<ProcessStatus> status(ProcessId process) const;

    /// ProcessStat::startTime; absent for a process that is gone.
    [[nodiscard]] std::optional<std::uint64_t> startTime(ProcessId process) const;

    /// The parent; 0 without one.
    [[nodiscard]] ProcessId parent(ProcessId process) const;

    /// The program file without the mark of a deleted file; absent also for a process that hides
    /// from its own user.
    [[nodiscard]] std::optional<std::string> executable(ProcessId process) const;

    /// The program file by a path that means no other file here. Below a root of its own a path
    /// that we know may be another file: it is given below /proc/PID/root then, and in a flatpak
    /// below flatpakFolder() or /proc/PID/root whatever file it is. Absent as executable() is.
    [[nodiscard]] std::optional<std::string> executableFromHere(ProcessId process) const;

    /// The arguments; empty for a kernel thread.
    [[nodiscard]] std::vector<std::string> commandLine(ProcessId process) const;

    /// Everything that identifies an application. Absent when the process is gone or when its id
    /// passed to another process meanwhile.  Cost: about 40 µs, for interpreters 15 more.
    [[nodiscard]] std::optional<ProcessDetails> details(ProcessId process) const;

    /// The part of details() that tells whether the rest is worth reading: arguments, program and
    /// control group. Empty for a process that is gone.  Cost: about 10 µs.
    [[nodiscard]] ProcessDetails outline(ProcessId process) const;

    /// Whether the process lives below another root than ours, as in a sandbox; false also where
    /// that may not be seen.
    [[nodiscard]] bool hasOwnRoot(ProcessId process) const;

    /// Path below the root of the control groups, see parseCgroup().
    [[nodiscard]] std::string controlGroup(ProcessId process) const;

    /// The name alone, without the new line; empty for a process that is gone.  Cost: 1 µs.
    [[nodiscard]] std::string comm(ProcessId process) const;

    /// The X display that the process was started for, without the screen: ":0". Empty when its
    /// environment names none, absent when that cannot be read.
    [[nodiscard]] std::optional<std::string> display(ProcessId process) const;

    /// A file of the process, opened for reading: "statm". None when it cannot be opened.
    [[nodiscard]] FileDescriptor open(ProcessId process, const char* file) const;

  private:
    [[nodiscard]] std::string read(ProcessId process, const char* file) const;
    [[nodiscard]] std::optional<std::string> linkTarget(ProcessId process, const char* link) const;
    [[nodiscard]] std::string readFlatpakInfo(ProcessId process) const;
    /// Reads which file the arguments mean; the rest of the details is there already.
    void readCommandFile(ProcessDetails& details) const;

    FileDescriptor root_;
    /// Device and number of the folder that "/" is for us.
    std::pair<std::uint64_t, std::uint64_t> ourRoot_;
};

} // namespace calmora
