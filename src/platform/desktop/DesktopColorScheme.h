// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop/dbus/Calls.h"
#include "support/Signal.h"

#include <QDBusConnection>

#include <functional>

class QVariant;

namespace calmora {

/// Whether the desktop prefers dark windows or light ones.
enum class ColorScheme { noPreference, dark, light };

/// The desktop's preference, read from its settings portal and followed while it changes. Never
/// blocks. There is none until the portal has answered, and where there is no portal.
/// Source: XDG Desktop Portal, org.freedesktop.portal.Settings, org.freedesktop.appearance.
class DesktopColorScheme final {
  public:
    explicit DesktopColorScheme(const QDBusConnection& sessionBus);

    [[nodiscard]] ColorScheme preference() const { return preference_; }

    /// Called when the preference is another one.
    [[nodiscard]] Subscription onChanged(std::function<void()> handler) {
        return changed_.connect(std::move(handler));
    }

  private:
    void set(const QVariant& scheme);

    ColorScheme preference_ = ColorScheme::noPreference;
    Signal<> changed_;
    BusSignal setting_;
};

} // namespace calmora
