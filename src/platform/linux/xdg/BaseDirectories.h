// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// Reads an environment variable; null when it is not set.
using EnvironmentReader = std::function<const char*(const char*)>;

/// The user's and the system's folders. Source: freedesktop XDG Base Directory Specification.
struct BaseDirectories {
    /// The home folder; empty if unknown.
    std::filesystem::path home;
    /// XDG_CONFIG_HOME.
    std::filesystem::path configHome;
    /// XDG_CONFIG_DIRS, most important first.
    std::vector<std::filesystem::path> configDirs;
    /// XDG_DATA_HOME.
    std::filesystem::path dataHome;
    /// XDG_DATA_DIRS, most important first, followed by missing exports of flatpak and snap.
    std::vector<std::filesystem::path> dataDirs;
    /// XDG_CURRENT_DESKTOP in lower case, most specific first.
    std::vector<std::string> currentDesktops;
    /// PATH.
    std::vector<std::filesystem::path> executableDirs;

    /// From the environment; relative paths are ignored, as freedesktop requires.
    [[nodiscard]] static BaseDirectories fromEnvironment(const EnvironmentReader& environment);
    /// From this process's own environment.
    [[nodiscard]] static BaseDirectories fromEnvironment();
};

/// The locale keys to look up, most specific first: for "sr_YU.UTF-8@Latn" sr_YU@Latn, sr_YU,
/// sr@Latn, sr. Empty for "C", "POSIX" and "". Source: freedesktop Desktop Entry Specification,
/// localized values for keys.
[[nodiscard]] std::vector<std::string> localeCandidates(std::string_view locale);

/// The candidates for the language of messages: LANGUAGE, then LC_ALL, LC_MESSAGES or LANG.
[[nodiscard]] std::vector<std::string> messageLocales(const EnvironmentReader& environment);

} // namespace calmora
