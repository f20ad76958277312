// SPDX-License-Identifier: MIT
#include "platform/desktop/status/NotifierItem.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"

#include <QDBusPendingCall>
#include <QTimer>

#include <utility>

namespace calmora {
namespace {

constexpr auto watcherName = "org.kde.StatusNotifierWatcher";
constexpr auto gnomeShellName = "org.gnome.Shell";

} // namespace

NotifierItem::NotifierItem(const QDBusConnection& connection, const QString& id,
                           const QString& title, const QString& menuPath, Handlers handlers)
    : connection_(connection), id_(id), title_(title), menu_(menuPath),
      handlers_(std::move(handlers)) {
    registerStatusTypes();
    connection_.registerObject(path, this, QDBusConnection::ExportAllContents);
}

void NotifierItem::announce() {
    connection_.asyncCall(methodCall("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                                     "org.kde.StatusNotifierWatcher", "RegisterStatusNotifierItem",
                                     {connection_.baseService()}));
}

void NotifierItem::setIcon(const Icon& icon) {
    icon_ = icon;
    Q_EMIT NewIcon();
}

void NotifierItem::setHidden(bool isHidden) {
    status_ = isHidden ? "Passive" : "Active";
    Q_EMIT NewStatus(status_);
}

void NotifierItem::setToolTipShown(bool isShown) {
    if (std::exchange(hasToolTip_, isShown) != isShown) {
        Q_EMIT NewTitle();
        Q_EMIT NewToolTip();
    }
}

void NotifierItem::Activate(int x, int y) {
    // The panel gets its answer first: a menu or a question may stay open for long.
    QTimer::singleShot(0, this, [this, x, y] { handlers_.activate({x, y}); });
}

void NotifierItem::ContextMenu(int x, int y) {
    QTimer::singleShot(0, this, [this, x, y] { handlers_.contextMenu({x, y}); });
}

void NotifierItem::SecondaryActivate(int /*x*/, int /*y*/) {}

void NotifierItem::Scroll(int /*delta*/, const QString& /*orientation*/) {}

void NotifierItem::ProvideXdgActivationToken(const QString& token) {
    // Qt's next window that asks for the focus on Wayland uses it.
    qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

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
