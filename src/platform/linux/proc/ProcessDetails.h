#pragma once

#include "platform/ProcessId.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// What a flatpak sandbox tells of the application in it.
struct FlatpakInfo {
    /// The application's id, which is also its desktop file id.
    std::string applicationId = {};
    /// The running instance; empty where the file does not say.
    std::string instanceId = {};

    friend bool operator==(const FlatpakInfo&, const FlatpakInfo&) = default;
};

/// The environment variables of a process that tell how it was launched; empty means not set.
struct LaunchEnvironment {
    /// GIO_LAUNCHED_DESKTOP_FILE: path of the entry that was launched.
    std::string launchedDesktopFile = {};
    /// GIO_LAUNCHED_DESKTOP_FILE_PID: the process it was launched as; children inherit both.
    ProcessId launchedDesktopFilePid = 0;
    /// BAMF_DESKTOP_FILE_HINT: path of the entry, set by snap's launchers.
    std::string bamfDesktopFileHint = {};
    /// APPDIR: where an AppImage is mounted.
    std::string appDir = {};
    /// APPIMAGE: the AppImage's own file.
    std::string appImage = {};
    /// PWD: where the shell was that started it; children inherit it.
    std::string shellFolder = {};
    /// CLASSPATH: where java looks for classes.
    std::string classPath = {};
    /// WINEPREFIX: the installation of wine that it runs in.
    std::string winePrefix = {};

    friend bool operator==(const LaunchEnvironment&, const LaunchEnvironment&) = default;
};

/// What the kernel tells of one process, as far as it may be read.
/// Together, `pid` and `startTime` are the identity of a process: ids are reused.
struct ProcessDetails {
    ProcessId pid = 0;
    /// 0 where there is none.
    ProcessId parent = 0;
    /// Clock ticks since the machine started.
    std::uint64_t startTime = 0;
    /// Real user id.
    std::uint32_t owner = 0;
    /// First 15 bytes of the program's name; the process may change it.
    std::string comm = {};
    /// The arguments, the program's own name first; the process may overwrite them.
    std::vector<std::string> commandLine = {};
    /// The program file without the kernel's " (deleted)"; absent where it may not be read, and
    /// where a folder now has the name of the deleted file.
    std::optional<std::string> executable = {};
    /// The file that the arguments name, links resolved: what an interpreter runs, else the
    /// program whose executable may not be read. Absent unless there is exactly one regular file
    /// that they can mean; inside of a folder that an interpreter runs it is the file that starts.
    std::optional<std::string> commandPath = {};
    /// The executable is an interpreter, known as one by the first line of the script it runs.
    bool runsScript = false;
    /// Where it is at work; read only for interpreters and where a relative path may be a script.
    std::optional<std::string> workingDirectory = {};
    /// It lives below another root than ours, as in a sandbox.
    bool hasOwnRoot = false;
    /// `executable` is another file here, or none: it means something only below that root.
    bool isExecutableElsewhere = false;
    /// Path below the root of the unified hierarchy; empty where there is none.
    std::string cgroup = {};
    LaunchEnvironment environment = {};
    /// Absent outside of a flatpak.
    std::optional<FlatpakInfo> flatpak = {};
    /// Path of the desktop file at the root of an AppImage; empty where there is none.
    std::string appImageDesktopFile = {};
};

} // namespace calmora
