#pragma once

#include "platform/Image.h"
#include "platform/linux/xdg/ExecKey.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// One installed application, as its desktop file describes it.
/// Source: freedesktop Desktop Entry Specification.
struct DesktopEntry {
    /// Desktop file id without ".desktop".
    std::string id = {};
    std::filesystem::path path = {};
    /// Name in the user's language, one line of valid UTF-8.
    std::string name = {};
    /// Name without a language.
    std::string unlocalizedName = {};
    /// Icon as it is written: a name in the icon theme or an absolute path.
    std::string icon = {};
    std::string exec = {};
    /// What Exec starts.
    Command command = {};
    /// keyOf() that command; empty where it names nothing.
    std::string execKey = {};
    /// The file that Exec starts, links resolved, as of resolveExec(); empty where there is none.
    std::string execPath = {};
    /// The interpreter of that file, by Exec or by the file's first line; empty for a program.
    std::string execInterpreter = {};
    /// PATH leads to that file by its name.
    bool isInPath = false;
    /// The folder in which the program is started; empty where the entry does not say.
    std::string workingFolder = {};
    std::string tryExec = {};
    std::string startupWmClass = {};
    std::vector<std::string> categories = {};
    std::vector<std::string> onlyShowIn = {};
    std::vector<std::string> notShowIn = {};
    /// The entry hides the application from menus.
    bool noDisplay = false;
    /// The entry says that the application counts as not installed.
    bool hidden = false;
    /// The program runs in a terminal window and has none of its own.
    bool needsTerminal = false;
    /// The application is in menus of the current desktop.
    bool isVisible = false;
    /// The user has the application started with the session.
    bool isAutostart = false;
    /// The entry is started once there is a tray for its icon.
    /// Source: LXQt session, X-LXQt-Need-Tray.
    bool needsTray = false;
};

/// Parses a desktop file. `id`, `path`, `isVisible` (beyond NoDisplay), `isAutostart` and what
/// resolveExec() finds are the caller's to fill in. Absent when it describes no application or has
/// no name. `locales` are localeCandidates(), most wanted first.
[[nodiscard]] std::optional<DesktopEntry> parseDesktopEntry(std::string_view text,
                                                            std::span<const std::string> locales);

/// The words of an Exec value, quotes and escapes resolved, field codes (%u) dropped.
/// Source: freedesktop Desktop Entry Specification, the Exec key.
[[nodiscard]] std::vector<std::string> execWords(std::string_view exec);

/// The picture that an Icon value names.
[[nodiscard]] Image iconImage(std::string_view icon);

} // namespace calmora
