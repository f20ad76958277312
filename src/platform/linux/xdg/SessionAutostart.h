// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/xdg/DesktopEntry.h"

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace calmora {

/// The system's autostart programs, which are part of the session: settings daemons, applets,
/// agents. A value. Reads nothing.
class SessionAutostart {
  public:
    /// Starts nothing.
    SessionAutostart() = default;

    /// `autostart` are the entries with ids from the system's autostart folders. One still counts
    /// as an application if a visible entry among `installed` starts the same command line, unless
    /// it is a service without windows or only an icon in the panel. `installed` are the installed
    /// applications and the user's autostart entries.
    SessionAutostart(std::span<const DesktopEntry> autostart,
                     std::span<const DesktopEntry> installed);

    /// Whether this command line runs a program of an entry. If an application uses the same
    /// program, the arguments must be equal too.
    [[nodiscard]] bool starts(std::span<const std::string> commandLine,
                              const std::optional<std::string>& executable) const;

  private:
    struct Command {
        /// The name to look up; empty for an empty command.
        std::string key;
        /// The program, script or jar as written.
        std::string program;
        std::vector<std::string> arguments;
        /// Ambiguous without the arguments.
        bool isBare = false;
    };

    [[nodiscard]] static Command commandOf(std::span<const std::string> words);

    /// By key.
    std::multimap<std::string, Command> commands_;
};

} // namespace calmora
