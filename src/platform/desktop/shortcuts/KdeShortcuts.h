#pragma once

#include "platform/desktop/shortcuts/DesktopShortcuts.h"

#include <QDBusConnection>

namespace calmora {

/// Asks KDE's daemon of global shortcuts, where it runs, for the combinations of all programs that
/// registered some. Waits for the answers, for a third of a second at most, and never starts the
/// daemon.
/// Source: org.kde.KGlobalAccel, allComponents; org.kde.kglobalaccel.Component, allShortcutInfos.
[[nodiscard]] DesktopShortcuts::Source kdeShortcuts(const QDBusConnection& bus);

} // namespace calmora
