// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/ExecResolver.h"

#include "support/FileDescriptor.h"
#include "support/TextHelpers.h"

#include <array>
#include <climits>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
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

std::string resolvedFile(const std::string& path) {
    std::array<char, PATH_MAX> resolved{};
    struct stat info{};
    if (!path.starts_with('/') || ::realpath(path.c_str(), resolved.data()) == nullptr ||
        ::stat(resolved.data(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return {};
    }
    return resolved.data();
}

std::string scriptInterpreterOf(std::string_view firstBytes) {
    std::string_view line = firstBytes.substr(0, firstBytes.find('\n'));
    if (!line.starts_with("#!")) {
        return {};
    }
    line.remove_prefix(2);
    while (!line.empty()) {
        const std::size_t start = line.find_first_not_of(" \t");
        if (start == std::string_view::npos) {
            break;
        }
        line.remove_prefix(start);
        const std::string_view word = line.substr(0, line.find_first_of(" \t"));
        line.remove_prefix(word.size());
        const std::string_view name = baseName(word);
        const bool isOfEnv =
            name == "env" || name.starts_with('-') || name.find('=') != std::string_view::npos;
        if (!isOfEnv) {
            return std::string(name);
        }
    }
    return {};
}

std::string scriptInterpreter(const std::string& path) {
    // Opening must not block, whatever the file is.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat info{};
    if (!file || ::fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return {};
    }
    std::array<char, 256> bytes{}; // As much as the kernel looks at.
    const ssize_t count = ::read(file.get(), bytes.data(), bytes.size());
    return count > 0 ? scriptInterpreterOf({bytes.data(), static_cast<std::size_t>(count)})
                     : std::string();
}

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
