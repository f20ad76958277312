#pragma once

#include "platform/desktop/shortcuts/DesktopShortcuts.h"

#include <QDBusConnection>

namespace calmora {

/// Asks Xfce's settings daemon, where it runs, for the combinations of the desktop. Waits for the
/// answer, for 150 ms at most, and never starts the daemon.
/// Source: org.xfce.Xfconf, GetAllProperties.
[[nodiscard]] DesktopShortcuts::Source xfceShortcuts(const QDBusConnection& bus);

} // namespace calmora
