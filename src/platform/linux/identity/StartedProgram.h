// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/proc/ProcessDetails.h"
#include "platform/linux/xdg/DesktopEntry.h"

#include <string>

namespace calmora {

/// The program that a process runs.
struct StartedProgram {
    /// keyOf() its command, for finding entries; empty if unknown.
    std::string key = {};
    /// Base name of argument 0, since a program may have several names; empty for an interpreter or
    /// wrapper.
    std::string calledKey = {};
    /// The file: the executable, an interpreter's script or jar, an AppImage, or a Windows
    /// program's normalized path. Empty if unknown.
    std::string path = {};
    /// The executable; empty if unreadable.
    std::string executable = {};
    /// The interpreter as started; empty for a native program.
    std::string interpreter = {};
    /// `key` is a module of the interpreter.
    bool isModule = false;
    /// `path` is an AppImage.
    bool isAppImage = false;
    /// Only calledKey is known.
    bool isKnownByCallOnly = false;
};

/// Finds out what the process runs. Pure.
[[nodiscard]] StartedProgram startedProgram(const ProcessDetails& process);

/// Whether the entry starts this program: the same file; a command in PATH with the program's name
/// that is a script or a link to a dispatcher; or, if only calledKey is known, a command of that
/// name in PATH. Pure.
[[nodiscard]] bool startsProgram(const DesktopEntry& entry, const StartedProgram& program);

/// Whether the executable is in the folder of the entry's program, or beside its bin: each of two
/// installations has its own entry. Pure.
[[nodiscard]] bool isInstalledTogether(const DesktopEntry& entry, const StartedProgram& program);

/// Whether an entry that matches the window's name may apply. An interpreter's program needs an
/// entry that starts it, or whose shell script in the same folder does; an AppImage excludes
/// entries of other images. Pure.
[[nodiscard]] bool mayStart(const DesktopEntry& entry, const StartedProgram& program);

/// Whether the entry's window declarations apply to this program: as mayStart(), and for an
/// interpreter's program also if the entry starts a script that may start it. Pure.
[[nodiscard]] bool declaresFor(const DesktopEntry& entry, const StartedProgram& program);

} // namespace calmora
