#pragma once

#include <span>
#include <string>
#include <string_view>

namespace calmora {

/// The name of the program that a command starts: the base name of the first word that is no
/// assignment, option, interpreter or wrapper, without .py .pl .sh .bin; for java the jar.
/// Empty where the command names none (a bare interpreter, "sh -c …", "flatpak run …").
[[nodiscard]] std::string execKey(std::span<const std::string> words);

/// The base name of a program file without .py .pl .sh .bin; empty for an interpreter.
[[nodiscard]] std::string programKey(std::string_view path);

/// The script or jar that an interpreter's command line runs, as it is written there; empty when
/// the command is no interpreter's or runs no file.
[[nodiscard]] std::string scriptOf(std::span<const std::string> words);

/// Whether the program runs other programs' code: python3.11, java, bash, wine, electron.
[[nodiscard]] bool isInterpreter(std::string_view path);

/// Whether the program is a shell.
[[nodiscard]] bool isShell(std::string_view path);

} // namespace calmora
