// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/dbus/Calls.h"
#include "support/Signal.h"

#include <QDBusConnection>

#include <functional>

class QVariant;

namespace calmora {

/// Whether the desktop prefers dark windows, read from its settings portal and followed while it
/// changes. Never blocks. Until the portal has answered, and where there is none, the toolkit's own
/// palette stays.
/// Source: XDG Desktop Portal, org.freedesktop.portal.Settings, org.freedesktop.appearance.
class DesktopColorScheme final {
  public:
    explicit DesktopColorScheme(const QDBusConnection& sessionBus);

    /// Called with the preference when it is known and at each change: true for dark.
    [[nodiscard]] Subscription onChanged(std::function<void(bool)> handler) {
        return changed_.connect(std::move(handler));
    }

  private:
    void notify(const QVariant& scheme) const;

    Signal<bool> changed_;
    BusSignal setting_;
};

} // namespace calmora
