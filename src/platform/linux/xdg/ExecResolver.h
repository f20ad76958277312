#pragma once

#include "platform/linux/xdg/DesktopEntry.h"

#include <filesystem>
#include <functional>
#include <span>
#include <string>

namespace calmora {

/// A file that a command may start.
struct ProgramFile {
    /// With links resolved; empty where there is no regular file.
    std::string path = {};
    /// See scriptInterpreter().
    std::string interpreter = {};
    bool isExecutable = false;
};

/// Tells what lies at an absolute path.
using ProgramLookup = std::function<ProgramFile(const std::string&)>;

/// What lies at the path on this machine.  Cost: about 15 µs.
[[nodiscard]] ProgramFile programFileAt(const std::string& path);

/// Fills in execPath, execInterpreter and isInPath of an entry. `executableDirs` is PATH. A link
/// to a wrapper or launcher (/snap/bin/tool) is not followed: all of them would be one program.
void resolveExec(DesktopEntry& entry, std::span<const std::filesystem::path> executableDirs,
                 const ProgramLookup& look);

} // namespace calmora
