// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/shortcuts/DesktopShortcuts.h"

#include <QDBusConnection>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace calmora {

/// Gives the name of the running window manager; empty when there is none, or it has no name.
using WindowManagerName = std::function<std::string()>;

/// The bindings of openbox while it manages the windows: of the first of `files` that can be read,
/// the user's before the system's.
[[nodiscard]] DesktopShortcuts::Source openboxShortcuts(WindowManagerName windowManager,
                                                        std::vector<std::filesystem::path> files);

/// GNOME's shortcuts from GSettings, while a window manager of GNOME runs; GIO is loaded then.
/// Schemas that are not installed are skipped.
/// Source: gsettings-desktop-schemas and gnome-settings-daemon, the schemas of key bindings.
[[nodiscard]] DesktopShortcuts::Source gnomeShortcuts(WindowManagerName windowManager);

/// The combinations of all programs that registered some with KDE's daemon of global shortcuts.
/// Waits for a third of a second at most, and never starts the daemon.
/// Source: org.kde.KGlobalAccel, allComponents; org.kde.kglobalaccel.Component, allShortcutInfos.
[[nodiscard]] DesktopShortcuts::Source kdeShortcuts(const QDBusConnection& bus);

/// The combinations in Xfce's settings daemon. Waits for 150 ms at most, and never starts it.
/// Source: org.xfce.Xfconf, GetAllProperties.
[[nodiscard]] DesktopShortcuts::Source xfceShortcuts(const QDBusConnection& bus);

} // namespace calmora
