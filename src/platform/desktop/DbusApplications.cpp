// SPDX-License-Identifier: MIT
#include "platform/desktop/DbusApplications.h"

#include "platform/desktop/dbus/Messages.h"

#include <algorithm>
#include <cstddef>

namespace calmora {
namespace {

constexpr auto panelWatcherName = "org.kde.StatusNotifierWatcher";
constexpr auto panelWatcherPath = "/StatusNotifierWatcher";
constexpr auto itemUnregistered = "StatusNotifierItemUnregistered";
constexpr auto playerPath = "/org/mpris/MediaPlayer2";
constexpr auto playerInterface = "org.mpris.MediaPlayer2";
constexpr auto propertiesInterface = "org.freedesktop.DBus.Properties";
constexpr int flushMilliseconds = 200;
/// Anyone may announce one.
constexpr std::size_t mostItems = 1000;

/// Names whose owners the session depends on.
QStringList protectedNames() {
    return {// The bus, the user's service manager, portals of sandboxes, accessibility, secrets.
            "org.freedesktop.DBus", "org.freedesktop.systemd1", "org.freedesktop.portal*",
            "org.freedesktop.impl.portal*", "org.a11y*", "org.freedesktop.secrets",
            "org.gnome.keyring*", "org.kde.kwalletd5", "org.kde.kwalletd6",
            // Notifications and status items.
            "org.freedesktop.Notifications", panelWatcherName,
            // Session managers, shells, window managers, settings daemons.
            "org.gnome.SessionManager", "org.gnome.Shell", "org.gnome.Shell.CalendarServer",
            "org.gnome.Shell.Notifications", "org.gnome.Mutter*", "org.gnome.SettingsDaemon*",
            "org.gnome.Panel", "org.gnome.ScreenSaver", "org.kde.ksmserver",
            "org.kde.KSMServerInterface", "org.kde.plasmashell", "org.kde.KWin",
            "org.kde.kglobalaccel", "org.kde.kded5", "org.kde.kded6", "org.xfce.SessionManager",
            "org.xfce.Panel", "org.xfce.SettingsDaemon", "org.xfce.Xfconf",
            "org.mate.SettingsDaemon", "org.mate.panel", "org.Cinnamon",
            "org.cinnamon.SettingsDaemon*", "org.cinnamon.ScreenSaver", "org.lxqt.session",
            "org.budgie_desktop.Panel", "com.canonical.Unity",
            // Files, settings, input methods, sound.
            "org.gtk.vfs*", "org.gtk.Private.RemoteVolumeMonitor", "ca.desrt.dconf",
            "org.freedesktop.IBus*", "org.freedesktop.portal.IBus", "org.fcitx.Fcitx*",
            "org.fcitx.Fcitx5", "org.PulseAudio1", "org.pulseaudio.Server",
            // Accounts.
            "org.gnome.OnlineAccounts", "org.gnome.Identity"};
}

/// The bus name in a watcher's spelling of an item: ":1.45/StatusNotifierItem",
/// ":1.45@/org/ayatana/…", "org.kde.StatusNotifierItem-1234-1".
QString nameOfItem(const QString& item) {
    const auto end = std::ranges::find_if(item, [](QChar c) { return c == '/' || c == '@'; });
    return item.left(end - item.begin());
}

/// Source: freedesktop D-Bus Specification, "Bus names".
bool isNameOfBus(const QString& name) {
    constexpr qsizetype longest = 255;
    return !name.isEmpty() && name.size() <= longest && std::ranges::all_of(name, [](QChar c) {
        return c.unicode() < 0x80 && (c.isLetterOrNumber() || QStringView(u"_-.:").contains(c));
    });
}

QDBusMessage actionsCall(const ExportedActions& actions, const QString& method,
                         const QVariantList& arguments = {}) {
    return methodCall(QString::fromStdString(actions.busName),
                      QString::fromStdString(actions.objectPath), "org.gtk.Actions", method,
                      arguments);
}

bool owns(const BusNames& names, ProcessId process) {
    return std::ranges::any_of(names.owners(),
                               [&](const auto& entry) { return entry.second.process == process; });
}

std::vector<ProcessId> processesOf(const BusNames& names) {
    std::set<ProcessId> processes;
    for (const auto& [name, owner] : names.owners()) {
        processes.insert(owner.process);
    }
    return {processes.begin(), processes.end()};
}

} // namespace

DbusApplications::DbusApplications(const QDBusConnection& connection)
    : connection_(connection),
      protected_(connection, protectedNames(), [this] { changed_.emit(); }),
      itemOwners_(connection, {}, [this] { changed_.emit(); }),
      players_(connection, {QString(playerInterface) + '*'}, [this] { playersChanged(); }) {
    if (!connection_.isConnected()) {
        return;
    }
    panelWatcher_.setConnection(connection_);
    panelWatcher_.addWatchedService(panelWatcherName);
    QObject::connect(&panelWatcher_, &QDBusServiceWatcher::serviceOwnerChanged, &panelWatcher_,
                     [this] { readItems(); });

    const auto listen = [this](const BusSignal::Match& match, auto handler) {
        signals_.push_back(std::make_unique<BusSignal>(connection_, match, handler));
    };
    for (const char* name : {"StatusNotifierItemRegistered", itemUnregistered}) {
        listen({panelWatcherPath, panelWatcherName, name},
               [this](const QDBusMessage& message) { itemChanged(message); });
    }
    listen({playerPath, propertiesInterface, "PropertiesChanged", {playerInterface}},
           [this](const QDBusMessage& message) {
               const auto change = readArguments<QString, QVariantMap, QStringList>(message);
               if (const auto canQuit = change
                                            ? readValue<bool>(std::get<1>(*change).value("CanQuit"))
                                            : std::nullopt) {
                   setCanQuit(message.service(), *canQuit);
               }
           });
    readItems();
}

void DbusApplications::readItems() {
    callAsync(connection_,
              propertyCall(panelWatcherName, panelWatcherPath, panelWatcherName,
                           "RegisteredStatusNotifierItems"),
              panelWatcher_, [this](const QDBusMessage& reply) {
                  const QStringList items =
                      readProperty<QStringList>(reply).value_or(QStringList());
                  setItems({items.begin(), items.end()});
              });
}

void DbusApplications::itemChanged(const QDBusMessage& message) {
    if (const auto item = readArgument<QString>(message)) {
        std::set<QString> items = items_;
        if (message.member() == itemUnregistered) {
            items.erase(*item);
        } else if (items.size() < mostItems) {
            items.insert(*item);
        }
        setItems(std::move(items));
    }
}

void DbusApplications::setItems(std::set<QString> items) {
    items_ = std::move(items);
    std::set<QString> names;
    for (const QString& item : items_) {
        if (const QString name = nameOfItem(item); isNameOfBus(name)) {
            names.insert(name);
        }
    }
    itemOwners_.setNames(names);
}

void DbusApplications::playersChanged() {
    std::set<QString> present;
    for (const auto& [name, owner] : players_.owners()) {
        present.insert(owner.uniqueName);
        if (askedPlayers_.insert(owner.uniqueName).second) {
            callAsync(connection_,
                      propertyCall(owner.uniqueName, playerPath, playerInterface, "CanQuit"),
                      panelWatcher_, [this, player = owner.uniqueName](const QDBusMessage& reply) {
                          if (const auto canQuit = readProperty<bool>(reply)) {
                              setCanQuit(player, *canQuit);
                          }
                      });
        }
    }
    const auto isAbsent = [&](const QString& player) { return !present.contains(player); };
    std::erase_if(askedPlayers_, isAbsent);
    std::erase_if(quittablePlayers_, isAbsent);
    changed_.emit();
}

void DbusApplications::setCanQuit(const QString& uniqueName, bool canQuit) {
    if (!askedPlayers_.contains(uniqueName)) {
        return;
    }
    if (canQuit) {
        quittablePlayers_.insert(uniqueName);
    } else {
        quittablePlayers_.erase(uniqueName);
    }
}

bool DbusApplications::ownsStatusItem(ProcessId process) const {
    return owns(itemOwners_, process);
}

std::vector<ProcessId> DbusApplications::statusItemProcesses() const {
    return processesOf(itemOwners_);
}

bool DbusApplications::isMediaPlayer(ProcessId process) const {
    return owns(players_, process);
}

bool DbusApplications::quitMediaPlayer(ProcessId process) {
    std::set<QString> players;
    for (const auto& [name, owner] : players_.owners()) {
        if (owner.process == process && quittablePlayers_.contains(owner.uniqueName)) {
            players.insert(owner.uniqueName);
        }
    }
    bool isSent = false;
    for (const QString& player : players) {
        isSent |= connection_.send(methodCall(player, playerPath, playerInterface, "Quit"));
    }
    hasUnflushed_ |= isSent;
    return isSent;
}

void DbusApplications::learnActions(const ExportedActions& actions) {
    const ActionsKey key{actions.busName, actions.objectPath};
    if (!connection_.isConnected() || quitActions_.contains(key)) {
        return;
    }
    callAsync(connection_, actionsCall(actions, "List"), panelWatcher_,
              [this, key](const QDBusMessage& reply) {
                  if (readArgument<QStringList>(reply).value_or(QStringList()).contains("quit")) {
                      quitActions_.insert(key);
                  }
              });
}

bool DbusApplications::activateQuit(const ExportedActions& actions) {
    if (!quitActions_.contains({actions.busName, actions.objectPath})) {
        return false;
    }
    const bool isSent = connection_.send(
        actionsCall(actions, "Activate", {QString("quit"), QVariantList(), QVariantMap()}));
    hasUnflushed_ |= isSent;
    return isSent;
}

std::vector<ProcessId> DbusApplications::protectedProcesses() const {
    return processesOf(protected_);
}

void DbusApplications::flush() {
    if (!hasUnflushed_) {
        return;
    }
    hasUnflushed_ = false;
    // The bus takes messages in order: with the answer it has the earlier ones.
    connection_.call(busCall("GetId"), QDBus::Block, flushMilliseconds);
}

} // namespace calmora
