#pragma once

#include "platform/linux/xdg/DesktopEntry.h"

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace calmora {

/// The programs that are part of the session because the system starts them with it: settings
/// daemons, applets, agents. A value. Reads nothing.
class SessionAutostart {
  public:
    /// Starts nothing.
    SessionAutostart() = default;

    /// `autostart` are the entries whose ids the system's autostart folders have. One is an
    /// application all the same when a visible entry among `installed` starts the same command
    /// line, except as a service without windows and unless it is a mere icon of the panel.
    /// `installed` are the installed applications and the user's own autostart entries.
    SessionAutostart(std::span<const DesktopEntry> autostart,
                     std::span<const DesktopEntry> installed);

    /// Whether a process with this command line runs what one of the entries starts. Where an
    /// application starts the same program, only with the very arguments of the entry.
    [[nodiscard]] bool starts(std::span<const std::string> commandLine,
                              const std::optional<std::string>& executable) const;

  private:
    struct Command {
        /// The name to look for; empty for an empty command.
        std::string key;
        /// The program, script or jar as it is written.
        std::string program;
        std::vector<std::string> arguments;
        /// The name tells nothing without the arguments.
        bool isBare = false;

        friend bool operator==(const Command&, const Command&) = default;
    };

    [[nodiscard]] static Command commandOf(std::span<const std::string> words);

    /// By key.
    std::multimap<std::string, Command> commands_;
};

} // namespace calmora
