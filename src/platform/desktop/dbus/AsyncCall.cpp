#include "platform/desktop/dbus/AsyncCall.h"

#include <QDBusPendingCallWatcher>

#include <utility>

namespace calmora {

void callAsync(const QDBusConnection& connection, const QDBusMessage& call, QObject& context,
               std::function<void(const QDBusMessage&)> done) {
    auto* pending = new QDBusPendingCallWatcher(connection.asyncCall(call), &context);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, &context,
                     [done = std::move(done)](QDBusPendingCallWatcher* answered) {
                         answered->deleteLater();
                         done(answered->reply());
                     });
}

QDBusMessage busCall(const QString& method, const QVariantList& arguments) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method);
    call.setArguments(arguments);
    return call;
}

} // namespace calmora
