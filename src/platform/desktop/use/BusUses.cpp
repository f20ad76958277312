// SPDX-License-Identifier: MIT
#include "platform/desktop/use/BusUses.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"
#include "platform/desktop/use/UseOwners.h"
#include "platform/desktop/use/UseReading.h"

#include <QDBusObjectPath>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <unistd.h>

namespace calmora {
namespace {

/// More players and inhibitors than anybody has: each costs questions of its own.
constexpr qsizetype mostAsked = 256;

constexpr auto playerName = "org.mpris.MediaPlayer2.";
constexpr auto sessionManager = "org.gnome.SessionManager";
/// Flags of an inhibitor: it forbids sleep, or to be idle.
constexpr uint forbidsSleep = 4;
constexpr uint forbidsIdle = 8;

QDBusMessage managerCall(const QString& path, const char* kind, const char* method) {
    return methodCall(sessionManager, path, QString(sessionManager) + kind, method);
}

/// The first of these. Whoever leaks inhibitors must not hide those of others: what is left out is
/// not known.
template <typename List>
List limited(List list, UseReading& reading) {
    if (list.size() > mostAsked) {
        list.resize(mostAsked);
        reading.setIncomplete();
    }
    return list;
}

template <typename List>
List listIn(const QDBusMessage& answer) {
    return readArgument<List>(answer).value_or(List());
}

/// (ss).
struct NamedInhibitor {
    QString who;
    QString why;
};

QDBusArgument& operator<<(QDBusArgument& to, const NamedInhibitor& inhibitor) {
    to.beginStructure();
    to << inhibitor.who << inhibitor.why;
    to.endStructure();
    return to;
}

const QDBusArgument& operator>>(const QDBusArgument& from, NamedInhibitor& inhibitor) {
    from.beginStructure();
    from >> inhibitor.who >> inhibitor.why;
    from.endStructure();
    return from;
}

/// Asks a manager about one of its inhibitors that forbids sleep or idleness: each question only
/// where the one before has no answer that tells the process.
class SessionInhibitor : public std::enable_shared_from_this<SessionInhibitor> {
  public:
    SessionInhibitor(UseReading& reading, const QDBusConnection& bus, const UseOwners& owners,
                     std::function<const std::vector<TopLevelWindow>&()> windows, QString path)
        : reading_(reading), bus_(bus), owners_(owners), windows_(std::move(windows)),
          path_(std::move(path)) {}

    void ask() {
        call("GetFlags", [](SessionInhibitor& self, const QDBusMessage& answer) {
            if ((readArgument<uint>(answer).value_or(0) & (forbidsSleep | forbidsIdle)) != 0) {
                self.askClient();
            }
        });
    }

  private:
    using Then = void (*)(SessionInhibitor&, const QDBusMessage&);

    void call(const char* method, Then then) {
        reading_.call(
            bus_, managerCall(path_, ".Inhibitor", method),
            [self = shared_from_this(), then](const QDBusMessage& answer) { then(*self, answer); });
    }

    void askClient() {
        call("GetClientId", [](SessionInhibitor& self, const QDBusMessage& answer) {
            const auto client = readArgument<QDBusObjectPath>(answer);
            if (!client || client->path().size() <= 1) {
                self.askWindow();
                return;
            }
            self.reading_.call(
                self.bus_, managerCall(client->path(), ".Client", "GetUnixProcessId"),
                [self = self.shared_from_this()](const QDBusMessage& reply) {
                    const auto process =
                        static_cast<ProcessId>(readArgument<uint>(reply).value_or(0));
                    if (process > 0) {
                        self->reading_.add(self->owners_.behind(process), UseKind::inhibitsSleep);
                    } else {
                        self->askWindow();
                    }
                });
        });
    }

    void askWindow() {
        call("GetToplevelXid", [](SessionInhibitor& self, const QDBusMessage& answer) {
            const uint number = readArgument<uint>(answer).value_or(0);
            for (const TopLevelWindow& window : self.windows_()) {
                if (number != 0 && window.process &&
                    static_cast<std::uint32_t>(window.id) == number) {
                    self.reading_.add(std::array{*window.process}, UseKind::inhibitsSleep);
                    return;
                }
            }
            self.askName();
        });
    }

    void askName() {
        call("GetAppId", [](SessionInhibitor& self, const QDBusMessage& answer) {
            const QString name = readArgument<QString>(answer).value_or(QString());
            self.reading_.add(self.owners_.called(name.toStdString()), UseKind::inhibitsSleep);
        });
    }

    UseReading& reading_;
    QDBusConnection bus_;
    const UseOwners& owners_;
    std::function<const std::vector<TopLevelWindow>&()> windows_;
    QString path_;
};

} // namespace

QDBusArgument& operator<<(QDBusArgument& to, const LogindInhibitor& inhibitor) {
    to.beginStructure();
    to << inhibitor.what << inhibitor.who << inhibitor.why << inhibitor.mode << inhibitor.user
       << inhibitor.process;
    to.endStructure();
    return to;
}

const QDBusArgument& operator>>(const QDBusArgument& from, LogindInhibitor& inhibitor) {
    from.beginStructure();
    from >> inhibitor.what >> inhibitor.who >> inhibitor.why >> inhibitor.mode >> inhibitor.user >>
        inhibitor.process;
    from.endStructure();
    return from;
}

bool keepsAwake(const LogindInhibitor& inhibitor, std::uint32_t user) {
    const QStringList what = inhibitor.what.split(':');
    return (what.contains("sleep") || what.contains("idle")) &&
           (inhibitor.mode == "block" || inhibitor.mode == "block-weak") && inhibitor.user == user;
}

void readMediaPlayers(UseReading& reading, const QDBusConnection& sessionBus,
                      const UseOwners& owners) {
    reading.call(sessionBus, busCall("ListNames"), [&, sessionBus](const QDBusMessage& answer) {
        QStringList players = listIn<QStringList>(answer);
        players.removeIf([](const QString& name) { return !name.startsWith(playerName); });
        for (const QString& player : limited(players, reading)) {
            const auto told = [&, sessionBus, player](const QDBusMessage& status) {
                if (readProperty<QString>(status) != "Playing") {
                    return;
                }
                reading.call(sessionBus, busCall("GetConnectionUnixProcessID", {player}),
                             [&](const QDBusMessage& reply) {
                                 const uint process = readArgument<uint>(reply).value_or(0);
                                 reading.add(owners.behind(static_cast<ProcessId>(process)),
                                             UseKind::playsMedia);
                             });
            };
            reading.call(sessionBus,
                         propertyCall(player, "/org/mpris/MediaPlayer2",
                                      "org.mpris.MediaPlayer2.Player", "PlaybackStatus"),
                         told);
        }
    });
}

void readLogindInhibitors(UseReading& reading, const QDBusConnection& systemBus) {
    qDBusRegisterMetaType<LogindInhibitor>();
    qDBusRegisterMetaType<QList<LogindInhibitor>>();
    const QDBusMessage list = methodCall("org.freedesktop.login1", "/org/freedesktop/login1",
                                         "org.freedesktop.login1.Manager", "ListInhibitors");
    reading.call(systemBus, list, [&reading](const QDBusMessage& answer) {
        for (const auto& inhibitor : listIn<QList<LogindInhibitor>>(answer)) {
            if (keepsAwake(inhibitor, ::getuid())) {
                reading.add(std::array{static_cast<ProcessId>(inhibitor.process)},
                            UseKind::inhibitsSleep);
            }
        }
    });
}

void readSessionInhibitors(UseReading& reading, const QDBusConnection& sessionBus,
                           const UseOwners& owners,
                           const std::function<const std::vector<TopLevelWindow>&()>& windows) {
    reading.call(sessionBus, managerCall("/org/gnome/SessionManager", "", "GetInhibitors"),
                 [&, sessionBus, windows](const QDBusMessage& answer) {
                     const auto paths = listIn<QList<QDBusObjectPath>>(answer);
                     for (const auto& path : limited(paths, reading)) {
                         std::make_shared<SessionInhibitor>(reading, sessionBus, owners, windows,
                                                            path.path())
                             ->ask();
                     }
                 });
}

void readPowerInhibitors(UseReading& reading, const QDBusConnection& sessionBus,
                         const UseOwners& owners) {
    qDBusRegisterMetaType<NamedInhibitor>();
    qDBusRegisterMetaType<QList<NamedInhibitor>>();
    reading.call(sessionBus,
                 methodCall("org.kde.Solid.PowerManagement.PolicyAgent",
                            "/org/kde/Solid/PowerManagement/PolicyAgent",
                            "org.kde.Solid.PowerManagement.PolicyAgent", "ListInhibitions"),
                 [&](const QDBusMessage& answer) {
                     const auto list = listIn<QList<NamedInhibitor>>(answer);
                     for (const auto& one : limited(list, reading)) {
                         reading.add(owners.called(one.who.toStdString()), UseKind::inhibitsSleep);
                     }
                 });
    reading.call(sessionBus,
                 methodCall("org.freedesktop.PowerManagement",
                            "/org/freedesktop/PowerManagement/Inhibit",
                            "org.freedesktop.PowerManagement.Inhibit", "GetInhibitors"),
                 [&](const QDBusMessage& answer) {
                     for (const auto& name : limited(listIn<QStringList>(answer), reading)) {
                         reading.add(owners.called(name.toStdString()), UseKind::inhibitsSleep);
                     }
                 });
}

void readIdleMonitor(UseReading& reading, const QDBusConnection& sessionBus) {
    reading.call(sessionBus,
                 methodCall("org.gnome.Mutter.IdleMonitor", "/org/gnome/Mutter/IdleMonitor/Core",
                            "org.gnome.Mutter.IdleMonitor", "GetIdletime"),
                 [&reading](const QDBusMessage& answer) {
                     constexpr qulonglong longest =
                         std::numeric_limits<std::int64_t>::max() / 2'000'000;
                     if (const auto idle = readArgument<qulonglong>(answer)) {
                         reading.setSinceInput(std::chrono::milliseconds(std::min(*idle, longest)));
                     }
                 });
}

} // namespace calmora
