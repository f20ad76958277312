// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/SessionAutostart.h"

#include "platform/linux/xdg/ExecKey.h"

#include <algorithm>
#include <utility>

namespace calmora {

namespace {

/// Starts an application without showing it. Source: GApplication, G_APPLICATION_IS_SERVICE.
constexpr const char* serviceOption = "--gapplication-service";

bool isAbsolute(const std::string& path) {
    return path.starts_with('/');
}

} // namespace

SessionAutostart::SessionAutostart(std::span<const DesktopEntry> autostart,
                                   std::span<const DesktopEntry> installed) {
    // With whether the entry is visible.
    std::multimap<std::string, std::pair<Command, bool>> applications;
    for (const DesktopEntry& entry : installed) {
        if (entry.isVisible || entry.isAutostart) {
            Command command = commandOf(execWords(entry.exec));
            std::string key = command.key;
            applications.emplace(std::move(key), std::pair(std::move(command), entry.isVisible));
        }
    }
    for (const DesktopEntry& entry : autostart) {
        Command command = commandOf(execWords(entry.exec));
        if (command.key.empty()) {
            continue;
        }
        const auto [first, last] = applications.equal_range(command.key);
        const bool isService =
            std::ranges::find(command.arguments, serviceOption) != command.arguments.end();
        const bool isApplication =
            !isService && !entry.needsTray && std::any_of(first, last, [&](const auto& other) {
                const auto& [theirs, isVisible] = other.second;
                return isVisible && theirs.arguments == command.arguments &&
                       (theirs.program == command.program || !isAbsolute(theirs.program) ||
                        !isAbsolute(command.program));
            });
        if (!isApplication) {
            command.isBare = command.isBare || first != last;
            std::string key = command.key;
            commands_.emplace(std::move(key), std::move(command));
        }
    }
}

bool SessionAutostart::starts(std::span<const std::string> commandLine,
                              const std::optional<std::string>& executable) const {
    const Command running = commandOf(commandLine);
    const auto isRun = [&](const Command& command) {
        // Programs of other packages may have the same name in another folder.
        const bool isProgram = !isAbsolute(command.program) || command.program == running.program ||
                               executable == command.program;
        return isProgram && (!command.isBare || (command.key == running.key &&
                                                 command.arguments == running.arguments));
    };
    for (const std::string& key : {running.key, programKey(executable.value_or(""))}) {
        const auto [first, last] = commands_.equal_range(key);
        if (!key.empty() &&
            std::any_of(first, last, [&](const auto& other) { return isRun(other.second); })) {
            return true;
        }
    }
    return false;
}

SessionAutostart::Command SessionAutostart::commandOf(std::span<const std::string> words) {
    if (words.empty()) {
        return {};
    }
    const std::string key = programKey(execKey(words));
    auto program = words.begin();
    if (!key.empty()) {
        program = std::ranges::find(words, key, [](const auto& word) { return programKey(word); });
    }
    if (key.empty() || program == words.end()) {
        // A command string, or a launcher's own way to name a program.
        return {words.front(), words.front(), {words.begin() + 1, words.end()}, true};
    }
    return {key, *program, {program + 1, words.end()}, false};
}

} // namespace calmora
