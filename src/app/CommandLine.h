// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace calmora {

/// What an invocation asks for.
enum class AppCommand {
    start,
    version,
    help,
    toggle,
    settings,
    quitAll,
    forceQuitAll,
    list,
    diagnose,
    leave
};

/// The arguments of an invocation.
struct CommandLine {
    AppCommand command = AppCommand::start;
    /// Of `list`: as JSON.
    bool asJson = false;
    /// Of `diagnose`: the processes in question.
    std::vector<ProcessId> processes = {};

    friend bool operator==(const CommandLine&, const CommandLine&) = default;
};

/// Reads the arguments without the program's name. Absent if they are not understood. Arguments
/// that do not begin with one of our options are left to the toolkit: `start`.
[[nodiscard]] std::optional<CommandLine> parseCommandLine(std::span<const std::string> arguments);

/// Whether the running instance carries the command out.
[[nodiscard]] bool isForInstance(AppCommand command);

/// Whether the command starts the program if none runs.
[[nodiscard]] bool startsInstance(AppCommand command);

/// The exit status of a command.
enum class CommandStatus : unsigned {
    done = 0,
    /// Nothing was done, or the user refused.
    nothingDone = 1,
    /// The arguments were not understood.
    usage = 2,
    /// No instance runs, there is no bus, or no answer came in time.
    noInstance = 3,
};

/// What the running instance answers.
struct CommandAnswer {
    CommandStatus status = CommandStatus::done;
    /// For the standard output; ends with a line break unless it is empty.
    std::string output = {};
};

} // namespace calmora
