#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace calmora {

/// What a command line starts.
struct Command {
    /// The program as it is written there; where an interpreter runs something, its script, jar,
    /// module or Windows program. Empty where the command names none (a bare interpreter,
    /// "sh -c …", "flatpak run …").
    std::string target = {};
    /// The interpreter as it is written; empty for a program that runs by itself.
    std::string interpreter = {};
    /// The target is a module, not a file: python3 -m.
    bool isModule = false;

    friend bool operator==(const Command&, const Command&) = default;
};

/// What a java command runs.
struct JavaProgram {
    /// -jar, else the only element of the class path if that is a jar; empty where there is none.
    std::string jar = {};
    /// The class path or module path as it is written; empty where the command gives none.
    std::string classPath = {};
    /// The main class or module; empty with -jar.
    std::string mainClass = {};
};

/// What a command starts: the first word that is no assignment, option, interpreter or wrapper.
[[nodiscard]] Command commandOf(std::span<const std::string> words);

/// What a process runs. The arguments count only as far as they fit the executable: the process
/// may have overwritten them. Without an executable that may be read they have to do.
[[nodiscard]] Command commandOfProcess(std::span<const std::string> words,
                                       const std::optional<std::string>& executable);

/// What a java command line runs; empty for others.
[[nodiscard]] JavaProgram javaProgramOf(std::span<const std::string> words);

/// The value that the command line gives a variable in front of the program (env X=1 tool); empty
/// for none.
[[nodiscard]] std::string assignmentIn(std::span<const std::string> words, std::string_view name);

/// The name under which programs are compared: the base name of a program, script or jar without
/// .py .pl .sh .bin .jar.
[[nodiscard]] std::string keyOf(const Command& command);

/// keyOf() the command that these words are.
[[nodiscard]] std::string execKey(std::span<const std::string> words);

/// The base name of a program file without .py .pl .sh .bin; empty for an interpreter or wrapper.
[[nodiscard]] std::string programKey(std::string_view path);

/// Whether the program runs other programs' code: python3.11, java, bash, wine, electron.
[[nodiscard]] bool isInterpreter(std::string_view path);

/// Whether the program starts another one in its own place or name: env, firejail, snap.
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
