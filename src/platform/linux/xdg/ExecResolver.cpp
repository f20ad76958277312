#include "platform/linux/xdg/ExecResolver.h"

#include "platform/linux/xdg/ExecutableFile.h"

#include <unistd.h>

namespace calmora {

namespace {

/// The first program of this name in PATH; no path where there is none.
ProgramFile inPath(const std::string& name, std::span<const std::filesystem::path> executableDirs,
                   const ProgramLookup& look) {
    for (const std::filesystem::path& folder : executableDirs) {
        const std::string path = (folder / name).string();
        ProgramFile file = look(path);
        if (file.path.empty() || !file.isExecutable) {
            continue;
        }
        if (!isWrapper(file.path) || isWrapper(name)) {
            return file;
        }
        // Sandboxes install links to themselves for the programs they start.
        if (file.path.ends_with("/snap") || file.path.ends_with("/flatpak")) {
            return {path, {}, true};
        }
    }
    return {};
}

} // namespace

ProgramFile programFileAt(const std::string& path) {
    ProgramFile file;
    file.path = resolvedFile(path);
    if (!file.path.empty()) {
        file.interpreter = scriptInterpreter(file.path);
        file.isExecutable = ::access(file.path.c_str(), X_OK) == 0;
    }
    return file;
}

void resolveExec(DesktopEntry& entry, std::span<const std::filesystem::path> executableDirs,
                 const ProgramLookup& look) {
    const Command& command = entry.command;
    entry.execPath.clear();
    entry.execInterpreter.clear();
    entry.isInPath = false;
    if (command.target.empty() || command.isModule || isWine(command.interpreter)) {
        return;
    }
    const std::filesystem::path target = command.target;
    const bool isProgram = command.interpreter.empty();
    ProgramFile named;
    if (isProgram) {
        named = inPath(target.filename().string(), executableDirs, look);
    }
    ProgramFile file = named;
    if (!isProgram || target.has_parent_path()) {
        const std::filesystem::path whole =
            target.is_absolute() ? target : std::filesystem::path(entry.workingFolder) / target;
        file = look(whole.string());
        if (!file.path.empty() && isWrapper(file.path) && !isWrapper(whole.string())) {
            file = {whole.string(), {}, true};
        }
    }
    entry.execPath = file.path;
    entry.isInPath = !file.path.empty() && named.path == file.path;
    entry.execInterpreter =
        isProgram ? file.interpreter : std::string(interpreterFamily(command.interpreter));
}

} // namespace calmora
