// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/windows/WindowSystem.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QList>
#include <QString>

#include <cstdint>
#include <functional>

namespace calmora {

class UseOwners;
class UseReading;

// What services of a bus tell of use. Each asks at once and goes on as answers come; the arguments
// taken by reference must outlive the reading. A service that is missing or answers something else
// tells nothing.

/// Media players that say they play.
/// Source: freedesktop, MPRIS D-Bus interface, PlaybackStatus.
void readMediaPlayers(UseReading& reading, const QDBusConnection& sessionBus,
                      const UseOwners& owners);

/// One inhibitor of logind.
struct LogindInhibitor {
    QString what;
    QString who;
    QString why;
    QString mode;
    std::uint32_t user = 0;
    std::uint32_t process = 0;
};

QDBusArgument& operator<<(QDBusArgument& to, const LogindInhibitor& inhibitor);
const QDBusArgument& operator>>(const QDBusArgument& from, LogindInhibitor& inhibitor);

/// Whether it keeps the machine awake on behalf of this user's program: a mere delay is what
/// daemons hold all the time.
[[nodiscard]] bool keepsAwake(const LogindInhibitor& inhibitor, std::uint32_t user);

/// What keeps the machine awake by logind.
/// Source: org.freedesktop.login1(5), ListInhibitors().
void readLogindInhibitors(UseReading& reading, const QDBusConnection& systemBus);

/// What keeps the session from sleep or idleness by the session's manager, as GNOME, Cinnamon and
/// MATE have it: the process of a client that is registered or gave its window's X11 number, else
/// the applications that its name may mean. `windows` gives the windows of now.
/// Source: gnome-session, org.gnome.SessionManager and org.gnome.SessionManager.Inhibitor.
void readSessionInhibitors(UseReading& reading, const QDBusConnection& sessionBus,
                           const UseOwners& owners,
                           const std::function<const std::vector<TopLevelWindow>&()>& windows);

/// What keeps the session awake by Plasma's or Xfce's power management, which tell only names.
/// Source: powerdevil, org.kde.Solid.PowerManagement.PolicyAgent; xfce4-power-manager,
/// org.freedesktop.PowerManagement.Inhibit.
void readPowerInhibitors(UseReading& reading, const QDBusConnection& sessionBus,
                         const UseOwners& owners);

/// How long ago the last input was, where mutter tells.
/// Source: mutter, org.gnome.Mutter.IdleMonitor.
void readIdleMonitor(UseReading& reading, const QDBusConnection& sessionBus);

} // namespace calmora
