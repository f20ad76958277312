// SPDX-License-Identifier: MIT
#include "platform/desktop/dbus/Calls.h"

#include <QDBusPendingCallWatcher>

#include <utility>

namespace calmora {

QDBusMessage methodCall(const QString& service, const QString& path, const QString& interface,
                        const QString& method, const QVariantList& arguments) {
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, method);
    call.setArguments(arguments);
    return call;
}

QDBusMessage busCall(const QString& method, const QVariantList& arguments) {
    return methodCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                      method, arguments);
}

QDBusMessage propertyCall(const QString& service, const QString& path, const QString& interface,
                          const QString& property) {
    return methodCall(service, path, "org.freedesktop.DBus.Properties", "Get",
                      {interface, property});
}

void callAsync(const QDBusConnection& connection, const QDBusMessage& call, QObject& context,
               std::function<void(const QDBusMessage&)> done) {
    auto* pending = new QDBusPendingCallWatcher(connection.asyncCall(call), &context);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, &context,
                     [done = std::move(done)](QDBusPendingCallWatcher* answered) {
                         answered->deleteLater();
                         done(answered->reply());
                     });
}

BusSignal::BusSignal(QDBusConnection connection, const Match& match,
                     std::function<void(const QDBusMessage&)> handler)
    : handler_(std::move(handler)) {
    connection.connect(match.service, match.path, match.interface, match.name, match.arguments, {},
                       this, SLOT(receive(QDBusMessage)));
}

} // namespace calmora
