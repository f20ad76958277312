// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// The application in a flatpak sandbox.
struct FlatpakInfo {
    /// The application's id, also its desktop file id.
    std::string applicationId = {};
    /// The running instance; empty if unknown.
    std::string instanceId = {};

    friend bool operator==(const FlatpakInfo&, const FlatpakInfo&) = default;
};

/// Environment variables that show how a process was launched; empty means not set.
struct LaunchEnvironment {
    /// GIO_LAUNCHED_DESKTOP_FILE: path of the launched entry.
    std::string launchedDesktopFile = {};
    /// GIO_LAUNCHED_DESKTOP_FILE_PID: the launched process; children inherit both.
    ProcessId launchedDesktopFilePid = 0;
    /// BAMF_DESKTOP_FILE_HINT: path of the entry, set by snap's launchers.
    std::string bamfDesktopFileHint = {};
    /// APPDIR: where an AppImage is mounted.
    std::string appDir = {};
    /// APPIMAGE: the AppImage's own file.
    std::string appImage = {};
    /// PWD: the shell's folder at the start; children inherit it.
    std::string shellFolder = {};
    /// CLASSPATH: where java looks for classes.
    std::string classPath = {};
    /// WINEPREFIX: the wine installation in use.
    std::string winePrefix = {};

    friend bool operator==(const LaunchEnvironment&, const LaunchEnvironment&) = default;
};

/// What the kernel reports about one process, as far as it is readable. `pid` and `startTime`
/// together identify a process, since ids are reused.
struct ProcessDetails {
    ProcessId pid = 0;
    /// 0 without a parent.
    ProcessId parent = 0;
    /// Clock ticks since the machine started.
    std::uint64_t startTime = 0;
    /// Real user id.
    std::uint32_t owner = 0;
    /// First 15 bytes of the program's name; the process can change it.
    std::string comm = {};
    /// The arguments, the program's name first; the process can overwrite them.
    std::vector<std::string> commandLine = {};
    /// The program file without the kernel's " (deleted)". Absent if unreadable, or if a folder now
    /// has the deleted file's name.
    std::optional<std::string> executable = {};
    /// The file that the arguments name, links resolved: what an interpreter runs, else the program
    /// whose executable is unreadable. Present only if exactly one regular file fits; for a folder
    /// that an interpreter runs, the file that starts.
    std::optional<std::string> commandPath = {};
    /// The executable is the interpreter named by the first line of a script.
    bool runsScript = false;
    /// The working directory; read only for interpreters and possible relative script paths.
    std::optional<std::string> workingDirectory = {};
    /// Its root differs from ours, as in a sandbox.
    bool hasOwnRoot = false;
    /// `executable` is valid only below that root; here it is another file or none.
    bool isExecutableElsewhere = false;
    /// Path below the root of the unified hierarchy; empty if unknown.
    std::string cgroup = {};
    LaunchEnvironment environment = {};
    /// Absent outside of a flatpak.
    std::optional<FlatpakInfo> flatpak = {};
    /// The desktop file at the root of an AppImage; empty if none.
    std::string appImageDesktopFile = {};
};

} // namespace calmora
