// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// What every process hands on to the programs that it starts.
struct Inheritance {
    /// NAME=value.
    std::vector<std::string> environment = {};
    /// The soft limit of open files.
    std::size_t openFiles = 1024;

    /// That of this process. Taken before the program changes its own.
    [[nodiscard]] static Inheritance now();

    /// The value of a variable; empty if it is not set.
    [[nodiscard]] std::string_view variable(std::string_view name) const;
};

/// The environment of an application: that of the session, without what a launcher or systemd told
/// this process about itself, and with the desktop file that is launched and the token that lets
/// its window come to the front, if there is one. The process adds its id behind launchedPid().
/// Source: freedesktop Startup Notification; freedesktop xdg-activation; GLib, GAppInfo; systemd,
/// systemd.exec(5), "Environment variables set on the command line".
[[nodiscard]] std::vector<std::string> programEnvironment(std::span<const std::string> session,
                                                          const std::filesystem::path& desktopFile,
                                                          const std::string& activationToken);

/// What stands in front of the process id in its own environment: GIO_LAUNCHED_DESKTOP_FILE_PID=.
[[nodiscard]] std::string_view launchedPid();

/// The executable file of a program: the path itself, or the first one with that name in the
/// folders of `path` (PATH). Absent if there is none, or for a relative path.
[[nodiscard]] std::optional<std::string> findProgram(const std::string& program,
                                                     std::string_view path);

/// The name of the systemd scope for an instance of an application; empty if it would be too long.
/// Source: systemd, Desktop Environment Integration.
[[nodiscard]] std::string appScopeName(std::string_view desktopId, std::string_view random);

} // namespace calmora
