// SPDX-License-Identifier: MIT
#include "platform/desktop/use/SessionAwayTime.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"

#include <QDBusObjectPath>
#include <QDBusServiceWatcher>

#include <array>
#include <set>
#include <utility>
#include <vector>

namespace calmora {
namespace {

constexpr auto login = "org.freedesktop.login1";
constexpr auto sessionFace = "org.freedesktop.login1.Session";
constexpr auto lockedHint = "LockedHint";

/// The name of the service is that of the interface.
struct ScreenSaver {
    const char* name;
    const char* path;
};

constexpr std::array screenSavers{
    ScreenSaver{"org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver"},
    ScreenSaver{"org.freedesktop.ScreenSaver", "/ScreenSaver"},
    ScreenSaver{"org.gnome.ScreenSaver", "/org/gnome/ScreenSaver"},
    ScreenSaver{"org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver"},
    ScreenSaver{"org.mate.ScreenSaver", "/org/mate/ScreenSaver"},
    ScreenSaver{"org.xfce.ScreenSaver", "/org/xfce/ScreenSaver"},
};

} // namespace

/// Who says that the session is locked, from when it is made on.
class SessionAwayTime::Locks {
  public:
    Locks(const QDBusConnection& sessionBus, std::shared_ptr<const QDBusConnection> systemBus,
          std::function<void(bool)> changed)
        : sessionBus_(sessionBus), systemBus_(std::move(systemBus)), changed_(std::move(changed)) {
        if (sessionBus_.isConnected()) {
            followScreenSavers();
        }
        if (systemBus_->isConnected()) {
            findSession();
        }
    }

  private:
    void set(const QString& who, bool isLocked) {
        const bool wasLocked = !locking_.empty();
        if (isLocked) {
            locking_.insert(who);
        } else {
            locking_.erase(who);
        }
        if (wasLocked == locking_.empty()) {
            changed_(!wasLocked);
        }
    }

    void followScreenSavers() {
        watcher_.setConnection(sessionBus_);
        for (const ScreenSaver& saver : screenSavers) {
            watcher_.addWatchedService(saver.name);
            signals_.push_back(std::make_unique<BusSignal>(
                sessionBus_,
                BusSignal::Match{.path = saver.path,
                                 .interface = saver.name,
                                 .name = "ActiveChanged",
                                 .service = saver.name},
                [this, saver](const QDBusMessage& signal) {
                    if (const auto isActive = readArgument<bool>(signal)) {
                        set(saver.name, *isActive);
                    }
                }));
            ask(saver);
        }
        QObject::connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, &watcher_,
                         [this](const QString& name, const QString&, const QString&) {
                             set(name, false);
                             for (const ScreenSaver& saver : screenSavers) {
                                 if (name == saver.name) {
                                     ask(saver);
                                 }
                             }
                         });
    }

    void ask(const ScreenSaver& saver) {
        QDBusMessage call = methodCall(saver.name, saver.path, saver.name, "GetActive");
        call.setAutoStartService(false);
        callAsync(sessionBus_, call, watcher_, [this, saver](const QDBusMessage& answer) {
            if (const auto isActive = readArgument<bool>(answer)) {
                set(saver.name, *isActive);
            }
        });
    }

    /// Signals of a session carry its own path, not the path "auto" that means the caller's.
    void findSession() {
        QDBusMessage ofCaller =
            propertyCall(login, "/org/freedesktop/login1/session/auto", sessionFace, "Id");
        ofCaller.setAutoStartService(false);
        callAsync(*systemBus_, ofCaller, watcher_, [this](const QDBusMessage& answer) {
            if (const auto id = readProperty<QString>(answer)) {
                callAsync(*systemBus_,
                          methodCall(login, "/org/freedesktop/login1",
                                     "org.freedesktop.login1.Manager", "GetSession", {*id}),
                          watcher_, [this](const QDBusMessage& found) {
                              if (const auto path = readArgument<QDBusObjectPath>(found)) {
                                  followSession(path->path());
                              }
                          });
            }
        });
    }

    void followSession(const QString& path) {
        signals_.push_back(std::make_unique<BusSignal>(
            *systemBus_,
            BusSignal::Match{.path = path,
                             .interface = "org.freedesktop.DBus.Properties",
                             .name = "PropertiesChanged",
                             .arguments = {sessionFace},
                             .service = login},
            [this](const QDBusMessage& signal) {
                const auto change = readArguments<QString, QVariantMap, QStringList>(signal);
                const auto isLocked =
                    change ? readValue<bool>(std::get<1>(*change).value(lockedHint)) : std::nullopt;
                if (isLocked) {
                    set(login, *isLocked);
                }
            }));
        callAsync(*systemBus_, propertyCall(login, path, sessionFace, lockedHint), watcher_,
                  [this](const QDBusMessage& answer) {
                      if (const auto isLocked = readProperty<bool>(answer)) {
                          set(login, *isLocked);
                      }
                  });
    }

    QDBusConnection sessionBus_;
    std::shared_ptr<const QDBusConnection> systemBus_;
    std::function<void(bool)> changed_;
    /// The services that say it.
    std::set<QString> locking_;
    QDBusServiceWatcher watcher_{nullptr};
    std::vector<std::unique_ptr<BusSignal>> signals_;
};

SessionAwayTime::SessionAwayTime(const QDBusConnection& sessionBus, BusOnDemand systemBus,
                                 std::function<AwakeAndAsleep()> clock)
    : sessionBus_(sessionBus), systemBus_(std::move(systemBus)), clock_(std::move(clock)) {}

SessionAwayTime::~SessionAwayTime() = default;

void SessionAwayTime::setFollowing(bool follows) {
    if (follows == (locks_ != nullptr)) {
        return;
    }
    counter_.setFollowing(follows, clock_());
    if (!follows) {
        locks_.reset();
        return;
    }
    locks_ = std::make_unique<Locks>(sessionBus_, systemBus_(), [this](bool isLocked) {
        counter_.setLocked(isLocked, clock_());
    });
}

std::chrono::nanoseconds SessionAwayTime::total() const {
    return counter_.total(clock_());
}

} // namespace calmora
