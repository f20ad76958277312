#include "platform/desktop/status/PanelWatcher.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"

#include <QTimer>

#include <utility>

namespace calmora {
namespace {

constexpr auto watcherName = "org.kde.StatusNotifierWatcher";
constexpr auto gnomeShellName = "org.gnome.Shell";

} // namespace

PanelWatcher::PanelWatcher(const QDBusConnection& connection, std::function<void(Panel)> onPanel)
    : connection_(connection), onPanel_(std::move(onPanel)) {
    if (!connection_.isConnected()) {
        QTimer::singleShot(0, &watcher_, [this] { setPanel(Panel::absent); });
        return;
    }
    watcher_.setConnection(connection_);
    watcher_.addWatchedService(watcherName);
    QObject::connect(
        &watcher_, &QDBusServiceWatcher::serviceOwnerChanged, &watcher_,
        [this](const QString&, const QString&, const QString& owner) { setOwner(owner); });
    callAsync(connection_, busCall("GetNameOwner", {watcherName}), watcher_,
              [this](const QDBusMessage& reply) {
                  // A signal that came before this answer is newer.
                  if (owner_.isEmpty()) {
                      setOwner(readArgument<QString>(reply).value_or(QString()));
                  }
              });
}

void PanelWatcher::setOwner(const QString& owner) {
    owner_ = owner;
    if (owner.isEmpty()) {
        setPanel(Panel::absent);
        return;
    }
    callAsync(connection_, busCall("GetNameOwner", {gnomeShellName}), watcher_,
              [this, owner](const QDBusMessage& reply) {
                  if (owner == owner_) {
                      const bool isShell = readArgument<QString>(reply) == owner;
                      setPanel(isShell ? Panel::gnomeShell : Panel::present);
                  }
              });
}

void PanelWatcher::setPanel(Panel panel) {
    panel_ = panel;
    onPanel_(panel);
}

} // namespace calmora
