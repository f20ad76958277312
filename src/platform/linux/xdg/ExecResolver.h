// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/xdg/DesktopEntry.h"

#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace calmora {

/// The regular file at an absolute path, all links resolved; empty if none. Cost: about 8 µs.
[[nodiscard]] std::string resolvedFile(const std::string& path);

/// The interpreter in a script's first line: "python3" for "#!/usr/bin/env python3". Empty for
/// other text. Pure.
[[nodiscard]] std::string scriptInterpreterOf(std::string_view firstBytes);

/// The same for a file; empty if unreadable. Cost: about 5 µs.
[[nodiscard]] std::string scriptInterpreter(const std::string& path);

/// A file that a command may start.
struct ProgramFile {
    /// Links resolved; empty if there is no regular file.
    std::string path = {};
    /// See scriptInterpreter().
    std::string interpreter = {};
    bool isExecutable = false;
};

/// Looks up an absolute path.
using ProgramLookup = std::function<ProgramFile(const std::string&)>;

/// The program file at this path. Cost: about 15 µs.
[[nodiscard]] ProgramFile programFileAt(const std::string& path);

/// Sets execPath, execInterpreter and isInPath of an entry. `executableDirs` is PATH. Does not
/// follow links to wrappers or launchers (/snap/bin/tool), which would make them all one program.
void resolveExec(DesktopEntry& entry, std::span<const std::filesystem::path> executableDirs,
                 const ProgramLookup& look);

} // namespace calmora
