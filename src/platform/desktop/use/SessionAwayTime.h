// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AwayTime.h"
#include "platform/desktop/use/AwayCounter.h"
#include "platform/desktop/use/SystemBus.h"

#include <QDBusConnection>

#include <functional>
#include <memory>

namespace calmora {

/// The session is away while the machine sleeps, and while logind says that the session is locked
/// or a screen saver of the desktop that it is active. Signals tell; nothing is polled, and while
/// it does not follow nothing is listened to.
/// Sources: org.freedesktop.login1(5), LockedHint; org.freedesktop.ScreenSaver and the same of
/// GNOME, Cinnamon, MATE and Xfce, ActiveChanged; clock_gettime(2).
class SessionAwayTime final : public AwayTime {
  public:
    SessionAwayTime(const QDBusConnection& sessionBus, BusOnDemand systemBus,
                    std::function<AwakeAndAsleep()> clock = AwakeAndAsleep::now);
    ~SessionAwayTime() override;

    void setFollowing(bool follows) override;
    [[nodiscard]] std::chrono::nanoseconds total() const override;

  private:
    class Locks;

    QDBusConnection sessionBus_;
    BusOnDemand systemBus_;
    std::function<AwakeAndAsleep()> clock_;
    mutable AwayCounter counter_;
    /// Null while it does not follow.
    std::unique_ptr<Locks> locks_;
};

} // namespace calmora
