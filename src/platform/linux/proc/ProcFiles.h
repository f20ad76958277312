// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/proc/ProcessDetails.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// Fields of /proc/PID/stat.
struct ProcessStat {
    std::string comm;
    /// 'R', 'S', 'D', 'T', 'Z' and so on.
    char state = '?';
    ProcessId parent = 0;
    /// Remaining threads; a zombie with more than one still runs.
    std::int64_t threads = 0;
    /// Clock ticks since the machine started.
    std::uint64_t startTime = 0;
    bool isKernelThread = false;

    /// Whether no thread of the process runs any more.
    [[nodiscard]] bool isGone() const {
        return state == 'X' || state == 'x' || (state == 'Z' && threads <= 1);
    }
};

/// Fields of /proc/PID/status.
struct ProcessStatus {
    std::uint32_t realUser = 0;
    /// Bytes; 0 for a process without memory of its own.
    std::uint64_t rssAnon = 0;
    /// Bytes.
    std::uint64_t vmSwap = 0;
    /// Its id in each of its pid namespaces, ours first; empty if the kernel does not report it.
    std::vector<ProcessId> namespaceIds = {};
};

/// What every start and every end of a process changes.
struct TaskTurnover {
    /// The process or thread that was started last.
    ProcessId last = 0;
    /// Processes and threads of the machine.
    std::uint64_t count = 0;

    bool operator==(const TaskTurnover&) const = default;
};

/// Parses /proc/PID/stat. The name may contain anything, so fields are counted from the last ')'.
/// Absent for truncated or other text. Source: proc_pid_stat(5).
[[nodiscard]] std::optional<ProcessStat> parseStat(std::string_view text);

/// Parses /proc/PID/status. Absent without a Uid line.  Source: proc_pid_status(5).
[[nodiscard]] std::optional<ProcessStatus> parseStatus(std::string_view text);

/// Parses /proc/PID/statm: resident minus shared pages, which are the anonymous ones. Absent for a
/// process without memory (zombie, kernel thread). Source: proc_pid_statm(5).
[[nodiscard]] std::optional<std::uint64_t> parseStatmAnonymousPages(std::string_view text);

/// Parses /proc/loadavg. Absent where it names no last process, as in some containers. Source:
/// proc_loadavg(5).
[[nodiscard]] std::optional<TaskTurnover> parseLoadavg(std::string_view text);

/// Parses /proc/PID/cgroup: the path in the unified hierarchy, else in systemd's; empty without
/// either. Source: cgroups(7).
[[nodiscard]] std::string parseCgroup(std::string_view text);

/// Parses /proc/PID/cmdline: NUL-terminated arguments.
[[nodiscard]] std::vector<std::string> parseCommandLine(std::string_view text);

/// Parses the relevant variables of /proc/PID/environ.
[[nodiscard]] LaunchEnvironment parseLaunchEnvironment(std::string_view text);

/// The X display of a DISPLAY value without its screen: ":0" for ":0.0" and "unix:0". Source: X(7),
/// display names.
[[nodiscard]] std::string displayOf(std::string_view variable);

/// Parses a sandbox's .flatpak-info, which is untrusted. Absent without a valid application name.
/// Source: flatpak-metadata(5).
[[nodiscard]] std::optional<FlatpakInfo> parseFlatpakInfo(std::string_view text);

/// A made-up path with a trailing slash for the /app of one flatpak instance: every instance shows
/// its files as /app, so their paths alone are ambiguous. Absent if the instance is unknown.
[[nodiscard]] std::optional<std::string> flatpakFolder(const FlatpakInfo& sandbox);

/// The path of /proc/PID/exe without the " (deleted)" mark.
[[nodiscard]] std::string_view withoutDeletedMark(std::string_view path);

/// The desktop ids that an application's systemd unit may mean, most likely first:
/// `app[-<launcher>]-<id>-<random>.scope`, `app[-<launcher>]-<id>[@<random>].service`. Source:
/// systemd "Desktop Environment Integration".
[[nodiscard]] std::vector<std::string> desktopIdsOfCgroup(std::string_view cgroup);

/// The desktop id of a control group's snap, `<snap>_<application>`; absent for others.
[[nodiscard]] std::optional<std::string> snapOfCgroup(std::string_view cgroup);

} // namespace calmora
