// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace calmora {

/// The program that a command line starts.
struct Command {
    /// The program as written; with an interpreter its script, jar, module or Windows program.
    /// Empty if there is none (a bare interpreter, "sh -c …", "flatpak run …").
    std::string target = {};
    /// The interpreter as written; empty for a native program.
    std::string interpreter = {};
    /// The target is a module, not a file: python3 -m.
    bool isModule = false;

    friend bool operator==(const Command&, const Command&) = default;
};

/// The program of a java command.
struct JavaProgram {
    /// -jar, else a class path that is one jar; empty if none.
    std::string jar = {};
    /// The class path or module path as written; empty if none.
    std::string classPath = {};
    /// The main class or module; empty with -jar.
    std::string mainClass = {};
};

/// Finds the first word that is no assignment, option, interpreter or wrapper.
[[nodiscard]] Command commandOf(std::span<const std::string> words);

/// The program of a process. Arguments count only if they fit the executable, because the process
/// may have overwritten them; without a readable executable they are used alone.
[[nodiscard]] Command commandOfProcess(std::span<const std::string> words,
                                       const std::optional<std::string>& executable);

/// What a java command line runs; empty for others.
[[nodiscard]] JavaProgram javaProgramOf(std::span<const std::string> words);

/// The value assigned to a variable in front of the program (env X=1 tool); empty if none.
[[nodiscard]] std::string assignmentIn(std::span<const std::string> words, std::string_view name);

/// The name for comparing programs: the base name of a program, script or jar without .py .pl .sh
/// .bin .jar.
[[nodiscard]] std::string keyOf(const Command& command);

/// keyOf() the command of these words.
[[nodiscard]] std::string execKey(std::span<const std::string> words);

/// The base name of a program file without .py .pl .sh .bin; empty for an interpreter or wrapper.
[[nodiscard]] std::string programKey(std::string_view path);

/// Whether the program runs other code: python3.11, java, bash, wine, electron.
[[nodiscard]] bool isInterpreter(std::string_view path);

/// Whether the program starts another one: env, firejail, snap.
[[nodiscard]] bool isWrapper(std::string_view path);

/// The interpreter's name without a version: "python" for /usr/bin/python3.13t.
[[nodiscard]] std::string_view interpreterFamily(std::string_view path);

/// Whether the program is a shell.
[[nodiscard]] bool isShell(std::string_view path);

/// Whether the program is a Java virtual machine.
[[nodiscard]] bool isJava(std::string_view path);

/// Whether the program is wine, which runs Windows programs.
[[nodiscard]] bool isWine(std::string_view path);

} // namespace calmora
