#pragma once

#include "platform/linux/proc/ProcessDetails.h"
#include "platform/linux/xdg/DesktopEntry.h"

#include <string>
#include <string_view>

namespace calmora {

/// What a process runs, as far as it can be told from other programs.
struct StartedProgram {
    /// keyOf() what it runs, under which entries are looked up; empty where that is not known.
    std::string key = {};
    /// The name that it was called by, without folders: a program may have several. Empty where
    /// that is an interpreter or wrapper.
    std::string calledKey = {};
    /// The file: the executable, the script or jar of an interpreter, the image of an AppImage,
    /// or windowsProgram(). Empty where it is not known.
    std::string path = {};
    /// The executable itself; empty where it cannot be read.
    std::string executable = {};
    /// The interpreter as the process was started with it; empty for a program that runs by itself.
    std::string interpreter = {};
    /// `key` is a module of the interpreter.
    bool isModule = false;
    /// `path` is the image of an AppImage.
    bool isAppImage = false;
    /// Nothing but the name it was called by tells what it runs.
    bool isKnownByCallOnly = false;
};

/// What this process runs. Pure.
[[nodiscard]] StartedProgram startedProgram(const ProcessDetails& process);

/// Whether the entry starts this program: the same file; a command in PATH that is a script or a
/// link to a dispatcher and has the program's name; or, where nothing but the called name is
/// known, a command of that name in PATH. Pure.
[[nodiscard]] bool startsProgram(const DesktopEntry& entry, const StartedProgram& program);

/// Whether the executable lies in the folder of what the entry starts, or beside its bin: of two
/// installations of one program each has its own entry. Pure.
[[nodiscard]] bool isInstalledTogether(const DesktopEntry& entry, const StartedProgram& program);

/// Whether an entry that has the name of the program's window may be meant: for what an interpreter
/// runs only one that starts it, or a shell script of the same folder that does; for an AppImage
/// none of another one. Pure.
[[nodiscard]] bool mayStart(const DesktopEntry& entry, const StartedProgram& program);

/// Whether what the entry declares of its windows holds for this program: as mayStart(), and for
/// what an interpreter runs also if the entry starts a script that may start it. Pure.
[[nodiscard]] bool declaresFor(const DesktopEntry& entry, const StartedProgram& program);

} // namespace calmora
