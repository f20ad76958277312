// SPDX-License-Identifier: MIT
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

/// A desktop file of an application. Source: freedesktop Desktop Entry Specification.
struct DesktopEntry {
    /// Desktop file id without ".desktop".
    std::string id = {};
    std::filesystem::path path = {};
    /// Name in the user's language, one line of valid UTF-8.
    std::string name = {};
    /// Name without a language.
    std::string unlocalizedName = {};
    /// Icon as written: a theme name or an absolute path.
    std::string icon = {};
    std::string exec = {};
    /// What Exec starts.
    Command command = {};
    /// keyOf() that command; may be empty.
    std::string execKey = {};
    /// The file that Exec starts, links resolved, see resolveExec(); empty if none.
    std::string execPath = {};
    /// That file's interpreter, from Exec or its first line; empty for a program.
    std::string execInterpreter = {};
    /// PATH finds that file by its name.
    bool isInPath = false;
    /// The program's working directory; empty if not given.
    std::string workingFolder = {};
    std::string tryExec = {};
    std::string startupWmClass = {};
    std::vector<std::string> categories = {};
    std::vector<std::string> onlyShowIn = {};
    std::vector<std::string> notShowIn = {};
    /// The entry hides the application from menus.
    bool noDisplay = false;
    /// The entry marks the application as not installed.
    bool hidden = false;
    /// The program runs in a terminal window.
    bool needsTerminal = false;
    /// The application is started by a message to its id on the session bus.
    bool isDbusActivatable = false;
    /// The application is in menus of the current desktop.
    bool isVisible = false;
    /// The user autostarts the application.
    bool isAutostart = false;
    /// Started once a tray exists. Source: LXQt session, X-LXQt-Need-Tray.
    bool needsTray = false;
};

/// Parses a desktop file. The caller sets `id`, `path`, `isVisible` (beyond NoDisplay),
/// `isAutostart` and the results of resolveExec(). Absent if it describes no application or has no
/// name. `locales` are localeCandidates().
[[nodiscard]] std::optional<DesktopEntry> parseDesktopEntry(std::string_view text,
                                                            std::span<const std::string> locales);

/// The words of an Exec value, quotes and escapes resolved, field codes (%u) dropped.
/// Source: freedesktop Desktop Entry Specification, the Exec key.
[[nodiscard]] std::vector<std::string> execWords(std::string_view exec);

/// The words to execute for an entry without files or addresses: %i, %c and %k are filled in, those
/// for files are dropped. Absent if nothing is to be executed or the value is invalid: another
/// field code, an open quotation mark.
[[nodiscard]] std::optional<std::vector<std::string>> launchWords(const DesktopEntry& entry);

/// The picture of an Icon value.
[[nodiscard]] Image iconImage(std::string_view icon);

} // namespace calmora
