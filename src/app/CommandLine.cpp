// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"

#include <array>
#include <charconv>
#include <string_view>
#include <utility>

namespace calmora {
namespace {

constexpr std::array<std::pair<std::string_view, AppCommand>, 9> options{{
    {"--version", AppCommand::version},
    {"--help", AppCommand::help},
    {"--toggle", AppCommand::toggle},
    {"--settings", AppCommand::settings},
    {"--quit-all", AppCommand::quitAll},
    {"--force-quit-all", AppCommand::forceQuitAll},
    {"--list", AppCommand::list},
    {"--diagnose", AppCommand::diagnose},
    {"--leave", AppCommand::leave},
}};

std::optional<ProcessId> processIn(std::string_view text) {
    ProcessId process = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), process);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole && process > 0 ? std::optional(process) : std::nullopt;
}

} // namespace

std::optional<CommandLine> parseCommandLine(std::span<const std::string> arguments) {
    CommandLine line;
    if (arguments.empty()) {
        return line;
    }
    if (arguments.front() == "-h") {
        return CommandLine{.command = AppCommand::help};
    }
    for (const auto& [option, command] : options) {
        if (arguments.front() == option) {
            line.command = command;
        }
    }
    if (line.command == AppCommand::start) {
        return line;
    }
    for (const std::string& argument : arguments.subspan(1)) {
        if (line.command == AppCommand::list && argument == "--json") {
            line.asJson = true;
        } else if (const auto process = processIn(argument);
                   line.command == AppCommand::diagnose && process) {
            line.processes.push_back(*process);
        } else {
            return {};
        }
    }
    return line;
}

bool isForInstance(AppCommand command) {
    return command != AppCommand::start && command != AppCommand::version &&
           command != AppCommand::help;
}

bool startsInstance(AppCommand command) {
    return command == AppCommand::start || command == AppCommand::toggle ||
           command == AppCommand::settings;
}

} // namespace calmora
