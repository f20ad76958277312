#pragma once

#include "platform/desktop/shortcuts/DesktopShortcuts.h"

namespace calmora {

/// Reads GNOME's shortcuts from GSettings while a window manager of GNOME runs. GIO is loaded when
/// that is first the case. A schema that is not installed is passed over.
/// Source: gsettings-desktop-schemas and gnome-settings-daemon, the schemas of key bindings.
[[nodiscard]] DesktopShortcuts::Source gnomeShortcuts(WindowManagerName windowManager);

} // namespace calmora
