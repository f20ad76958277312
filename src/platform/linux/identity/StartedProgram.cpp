// SPDX-License-Identifier: MIT
#include "platform/linux/identity/StartedProgram.h"

#include "platform/linux/xdg/ExecKey.h"
#include "support/TextHelpers.h"

#include <algorithm>

namespace calmora {

namespace {

/// Both files belong to the system's packages, or both are below /usr/local.
bool areOfOneSystem(std::string_view one, std::string_view other) {
    constexpr std::string_view system = "/usr/";
    constexpr std::string_view local = "/usr/local/";
    return one.starts_with(system) && other.starts_with(system) &&
           one.starts_with(local) == other.starts_with(local);
}

bool isSameInterpreter(std::string_view one, std::string_view other) {
    return interpreterFamily(one) == interpreterFamily(other);
}

/// The entry starts a launcher of the program: a script, or a link to a program with another name.
bool isLauncherOf(const DesktopEntry& entry, const StartedProgram& program) {
    const bool isLauncher =
        !entry.execInterpreter.empty() || programKey(entry.execPath) != entry.execKey;
    if (!isLauncher || entry.execPath.empty() || program.key != entry.execKey) {
        return false;
    }
    if (entry.isInPath && areOfOneSystem(entry.execPath, program.path)) {
        return true;
    }
    const bool isLinkOrShell = entry.execInterpreter.empty() || isShell(entry.execInterpreter);
    return isLinkOrShell && program.interpreter.empty() &&
           folderPart(entry.execPath) == folderPart(program.path);
}

/// The program is in the entry's own folder, which has the entry's name.
bool liesInFolderOf(const DesktopEntry& entry, const StartedProgram& program) {
    const std::string path = loweredAscii(program.path);
    const std::string name = "/" + loweredAscii(entry.execKey) + "/";
    const std::size_t at = path.find(name);
    if (at == std::string::npos) {
        return false;
    }
    return areOfOneSystem(entry.execPath, program.path) ||
           entry.execPath.starts_with(program.path.substr(0, at + name.size()));
}

/// Images often declare the same names, such as "app".
bool isOfAnotherImage(const DesktopEntry& entry, const StartedProgram& program) {
    return program.isAppImage && loweredAscii(entry.execPath).ends_with(".appimage") &&
           entry.execPath != program.path;
}

/// Whether the process runs from the AppImage that its environment names.
bool isOfAppImage(const ProcessDetails& process) {
    const LaunchEnvironment& environment = process.environment;
    const std::string folder = environment.appDir + "/";
    const auto isInside = [&](const std::optional<std::string>& path) {
        return path && path->starts_with(folder);
    };
    // AppImages never mount over /usr, whatever a variable says.
    return environment.appImage.starts_with('/') && environment.appDir.starts_with('/') &&
           !environment.appDir.starts_with("/usr") && environment.appDir != "/" &&
           (isInside(process.executable) || isInside(process.commandPath));
}

/// One name for a Windows program: lower case, with slashes. A path below z: becomes the path it
/// stands for; others get the prefix of their wine installation unless that is the usual one. Empty
/// for a relative path.
std::string windowsProgram(std::string_view path, std::string_view winePrefix) {
    std::string plain = loweredAscii(path);
    std::ranges::replace(plain, '\\', '/');
    if (plain.starts_with("z:/")) {
        plain.erase(0, 2);
    }
    const bool isInPrefix = plain.size() > 2 && plain[1] == ':' && plain[2] == '/';
    if (!isInPrefix) {
        return plain.starts_with('/') ? plain : std::string();
    }
    while (winePrefix.ends_with('/')) {
        winePrefix.remove_suffix(1);
    }
    const bool isUsual = winePrefix.empty() || winePrefix.ends_with("/.wine");
    return isUsual ? plain : std::string(winePrefix) + ":" + plain;
}

} // namespace

StartedProgram startedProgram(const ProcessDetails& process) {
    StartedProgram program;
    const std::string called =
        process.commandLine.empty() ? std::string() : process.commandLine.front();
    program.calledKey = programKey(called);
    program.executable = process.executable.value_or("");
    if (isOfAppImage(process)) {
        program.path = process.environment.appImage;
        program.key = programKey(program.path);
        program.isAppImage = true;
        return program;
    }
    if (process.runsScript && process.executable && process.commandPath) {
        program.interpreter = *process.executable;
        program.path = *process.commandPath;
        program.key = programKey(program.path);
        return program;
    }
    const Command command = commandOfProcess(process.commandLine, process.executable);
    program.interpreter = command.interpreter;
    program.isModule = command.isModule;
    program.key = keyOf(command);
    if (isWine(command.interpreter)) {
        program.path = windowsProgram(process.commandPath.value_or(command.target),
                                      process.environment.winePrefix);
    } else if (command.interpreter.empty() && process.executable) {
        program.path = *process.executable;
    } else {
        program.path = process.commandPath.value_or("");
    }
    const bool isUnreadable = command.interpreter.empty() && !process.executable;
    const bool isRenamed = command.target.empty() && !program.calledKey.empty();
    program.isKnownByCallOnly = program.path.empty() && called.find('/') == std::string::npos &&
                                !command.isModule && (isUnreadable || isRenamed);
    return program;
}

bool startsProgram(const DesktopEntry& entry, const StartedProgram& program) {
    if (entry.execKey.empty()) {
        return false;
    }
    const bool isWindowsEntry = isWine(entry.command.interpreter);
    if (isWindowsEntry || isWine(program.interpreter)) {
        return isWindowsEntry && isWine(program.interpreter) && !program.path.empty() &&
               windowsProgram(entry.command.target,
                              assignmentIn(execWords(entry.exec), "WINEPREFIX")) == program.path;
    }
    if (entry.command.isModule || program.isModule) {
        return entry.command.isModule && program.isModule && entry.execKey == program.key &&
               entry.command.interpreter == program.interpreter;
    }
    if (!program.path.empty()) {
        return program.path == entry.execPath || isLauncherOf(entry, program);
    }
    // A launcher may rename the interpreter (exec -a).
    const bool mayBeCalledSo = isSameInterpreter(entry.execInterpreter, program.interpreter) ||
                               (!program.interpreter.empty() && isShell(entry.execInterpreter));
    return program.isKnownByCallOnly && entry.isInPath && program.calledKey == entry.execKey &&
           mayBeCalledSo;
}

bool isInstalledTogether(const DesktopEntry& entry, const StartedProgram& program) {
    std::string_view folder = folderPart(entry.execPath);
    constexpr std::string_view bin = "/bin/";
    if (folder.ends_with(bin)) {
        folder.remove_suffix(bin.size() - 1);
    }
    return folder.size() > 1 && program.executable.starts_with(folder);
}

bool mayStart(const DesktopEntry& entry, const StartedProgram& program) {
    if (program.interpreter.empty()) {
        return !isOfAnotherImage(entry, program);
    }
    return startsProgram(entry, program) ||
           (isShell(entry.execInterpreter) && !program.path.empty() &&
            liesInFolderOf(entry, program));
}

bool declaresFor(const DesktopEntry& entry, const StartedProgram& program) {
    if (mayStart(entry, program)) {
        return true;
    }
    const bool isLaunchedScript = isShell(entry.execInterpreter) ||
                                  (program.isKnownByCallOnly &&
                                   isSameInterpreter(entry.execInterpreter, program.interpreter));
    return !program.interpreter.empty() && !isWine(program.interpreter) &&
           !entry.execPath.empty() && isLaunchedScript;
}

} // namespace calmora
