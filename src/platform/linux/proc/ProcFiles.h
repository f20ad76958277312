#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/proc/ProcessDetails.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// The fields of /proc/PID/stat that are used.
struct ProcessStat {
    std::string comm;
    /// 'R', 'S', 'D', 'T', 'Z' and so on.
    char state = '?';
    ProcessId parent = 0;
    /// Threads that are left; a zombie with more than one still runs.
    std::int64_t threads = 0;
    /// Clock ticks since the machine started.
    std::uint64_t startTime = 0;
    bool isKernelThread = false;

    /// Whether nothing of the process runs any more.
    [[nodiscard]] bool isGone() const {
        return state == 'X' || state == 'x' || (state == 'Z' && threads <= 1);
    }
};

/// The fields of /proc/PID/status that are used.
struct ProcessStatus {
    std::uint32_t realUser = 0;
    /// Bytes; 0 for a process without memory of its own.
    std::uint64_t rssAnon = 0;
    /// Bytes.
    std::uint64_t vmSwap = 0;
    /// Its id in each pid namespace that it is in, ours first; empty where the kernel does not say.
    std::vector<ProcessId> namespaceIds = {};
};

/// Parses /proc/PID/stat. The name may hold anything, so the fields are counted from the last ')'.
/// Absent when the text is cut short or is no such file.  Source: proc_pid_stat(5).
[[nodiscard]] std::optional<ProcessStat> parseStat(std::string_view text);

/// Parses /proc/PID/status. Absent without a Uid line.  Source: proc_pid_status(5).
[[nodiscard]] std::optional<ProcessStatus> parseStatus(std::string_view text);

/// Parses /proc/PID/statm: pages that are resident and not shared, which are the anonymous ones.
/// Absent for a process without memory (a zombie, a kernel thread).  Source: proc_pid_statm(5).
[[nodiscard]] std::optional<std::uint64_t> parseStatmAnonymousPages(std::string_view text);

/// Parses /proc/PID/cgroup: the path in the unified hierarchy, else in systemd's own one; empty
/// where there is neither.  Source: cgroups(7).
[[nodiscard]] std::string parseCgroup(std::string_view text);

/// Parses /proc/PID/cmdline: arguments that end in NUL.
[[nodiscard]] std::vector<std::string> parseCommandLine(std::string_view text);

/// Parses /proc/PID/environ for the variables that count.
[[nodiscard]] LaunchEnvironment parseLaunchEnvironment(std::string_view text);

/// The X display that a variable DISPLAY names, without the screen: ":0" for ":0.0" and "unix:0".
/// Source: X(7), display names.
[[nodiscard]] std::string displayOf(std::string_view variable);

/// Parses a sandbox's .flatpak-info. Absent without an application name of the letters that such
/// a name may have: whoever makes the sandbox writes the file.
/// Source: flatpak-metadata(5).
[[nodiscard]] std::optional<FlatpakInfo> parseFlatpakInfo(std::string_view text);

/// A path, with a closing slash, for the files that one instance of a flatpak has in its own /app.
/// It exists nowhere: every instance shows its files as /app, so their paths alone do not tell
/// which one they are of. Absent where the instance is unknown.
[[nodiscard]] std::optional<std::string> flatpakFolder(const FlatpakInfo& sandbox);

/// The path of /proc/PID/exe without the mark of a deleted file.
[[nodiscard]] std::string_view withoutDeletedMark(std::string_view path);

} // namespace calmora
