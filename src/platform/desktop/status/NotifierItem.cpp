#include "platform/desktop/status/NotifierItem.h"

#include "platform/desktop/dbus/Calls.h"

#include <QDBusPendingCall>
#include <QTimer>

#include <utility>

namespace calmora {

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

void NotifierItem::Activate(int x, int y) {
    // The panel gets its answer first: a menu or a question may stay open for long.
    QTimer::singleShot(0, this, [this, x, y] { handlers_.activate({x, y}); });
}

void NotifierItem::ContextMenu(int x, int y) {
    QTimer::singleShot(0, this, [this, x, y] { handlers_.contextMenu({x, y}); });
}

void NotifierItem::ProvideXdgActivationToken(const QString& token) {
    // Qt's next window that asks for the focus on Wayland uses it.
    qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

} // namespace calmora
