#pragma once

#include "support/Signal.h"

#include <QObject>

class QDBusConnection;
class QDBusMessage;
class QVariant;

namespace calmora {

/// Whether the desktop prefers dark windows, asked of its settings portal and followed while it
/// changes. Nothing blocks: until the portal has answered, and where there is none, no preference
/// is told and the toolkit's own palette stays.
/// Source: XDG Desktop Portal, org.freedesktop.portal.Settings, org.freedesktop.appearance.
class DesktopColorScheme final : public QObject {
    Q_OBJECT

  public:
    explicit DesktopColorScheme(const QDBusConnection& sessionBus);

    /// Tells the preference when it is learnt and at each change: true for dark.
    [[nodiscard]] Subscription onChanged(std::function<void(bool)> handler);

  private Q_SLOTS:
    void settingChanged(const QDBusMessage& signal);

  private:
    void tell(const QVariant& scheme);

    Signal<bool> changed_;
};

} // namespace calmora
