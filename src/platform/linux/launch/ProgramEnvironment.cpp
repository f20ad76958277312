// SPDX-License-Identifier: MIT
#include "platform/linux/launch/ProgramEnvironment.h"

#include "platform/linux/proc/PidFd.h"
#include "support/TextHelpers.h"

#include <algorithm>
#include <array>

#include <sys/stat.h>
#include <unistd.h>

namespace calmora {
namespace {

/// Variables that are meant for one process only.
constexpr auto ofOneProcess = std::to_array<std::string_view>({"BAMF_DESKTOP_FILE_HINT",
                                                               "DBUS_STARTER_ADDRESS",
                                                               "DBUS_STARTER_BUS_TYPE",
                                                               "DESKTOP_AUTOSTART_ID",
                                                               "DESKTOP_STARTUP_ID",
                                                               "FDSTORE",
                                                               "GIO_LAUNCHED_DESKTOP_FILE",
                                                               "GIO_LAUNCHED_DESKTOP_FILE_PID",
                                                               "INVOCATION_ID",
                                                               "JOURNAL_STREAM",
                                                               "LISTEN_FDNAMES",
                                                               "LISTEN_FDS",
                                                               "LISTEN_PID",
                                                               "LISTEN_PIDFDID",
                                                               "MAINPID",
                                                               "MANAGERPID",
                                                               "MANAGERPIDFDID",
                                                               "MEMORY_PRESSURE_WATCH",
                                                               "MEMORY_PRESSURE_WRITE",
                                                               "NOTIFY_SOCKET",
                                                               "SYSTEMD_EXEC_PID",
                                                               "WATCHDOG_PID",
                                                               "WATCHDOG_USEC",
                                                               "WAYLAND_SOCKET",
                                                               "XDG_ACTIVATION_TOKEN"});
static_assert(std::ranges::is_sorted(ofOneProcess));

bool isProgram(const std::string& path) {
    struct stat info{};
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) &&
           access(path.c_str(), X_OK) == 0;
}

} // namespace

Inheritance Inheritance::now() {
    Inheritance inheritance{.openFiles = openFileLimit()};
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
        inheritance.environment.emplace_back(*variable);
    }
    return inheritance;
}

std::string_view Inheritance::variable(std::string_view name) const {
    for (const std::string_view assignment : environment) {
        if (assignment.starts_with(name) && assignment.size() > name.size() &&
            assignment[name.size()] == '=') {
            return assignment.substr(name.size() + 1);
        }
    }
    return {};
}

std::vector<std::string> programEnvironment(std::span<const std::string> session,
                                            const std::filesystem::path& desktopFile,
                                            const std::string& activationToken) {
    std::vector<std::string> environment;
    std::ranges::copy_if(session, std::back_inserter(environment), [](std::string_view variable) {
        return !std::ranges::binary_search(ofOneProcess, variable.substr(0, variable.find('=')));
    });
    environment.push_back("GIO_LAUNCHED_DESKTOP_FILE=" + desktopFile.string());
    if (!activationToken.empty()) {
        // Toolkits read one or the other, whatever the window system.
        environment.push_back("DESKTOP_STARTUP_ID=" + activationToken);
        environment.push_back("XDG_ACTIVATION_TOKEN=" + activationToken);
    }
    return environment;
}

std::string_view launchedPid() {
    return "GIO_LAUNCHED_DESKTOP_FILE_PID=";
}

std::optional<std::string> findProgram(const std::string& program, std::string_view path) {
    if (program.starts_with('/')) {
        return isProgram(program) ? std::optional(program) : std::nullopt;
    }
    std::optional<std::string> found;
    if (!program.empty() && program.find('/') == std::string::npos) {
        forEachPiece(path, ':', [&](std::string_view folder) {
            // What lies in the working directory is nobody's program.
            const std::string candidate = std::string(folder) + '/' + program;
            if (!found && folder.starts_with('/') && isProgram(candidate)) {
                found = candidate;
            }
        });
    }
    return found;
}

std::string appScopeName(std::string_view desktopId, std::string_view random) {
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr std::string_view plain = "0123456789abcdefghijklmnopqrstuvwxyz"
                                       "ABCDEFGHIJKLMNOPQRSTUVWXYZ:_.";
    std::string name = "app-calmora-";
    for (const char letter : desktopId) {
        if (plain.find(letter) != std::string_view::npos) {
            name += letter;
            continue;
        }
        const auto byte = static_cast<unsigned char>(letter);
        name += "\\x";
        name += digits[byte / digits.size()];
        name += digits[byte % digits.size()];
    }
    name += '-';
    name += random;
    name += ".scope";
    constexpr std::size_t longest = 255;
    return name.size() > longest ? std::string() : name;
}

} // namespace calmora
