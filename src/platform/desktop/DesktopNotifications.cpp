// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopNotifications.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"

#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

namespace calmora {
namespace {

QDBusMessage serverCall(const QString& method, const QVariantList& arguments = {}) {
    return methodCall("org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                      "org.freedesktop.Notifications", method, arguments);
}

} // namespace

DesktopNotifications::DesktopNotifications(const QDBusConnection& bus, const QString& applicationId)
    : bus_(bus), applicationId_(applicationId) {}

void DesktopNotifications::add(const UserNotification& notification) {
    const QString title = QString::fromStdString(notification.title);
    const QString body = QString::fromStdString(notification.body);
    // Asked each time: the server may have changed.
    callAsync(bus_, serverCall("GetCapabilities"), answers_, [=, this](const QDBusMessage& answer) {
        const auto capabilities = readArgument<QStringList>(answer);
        if (!capabilities) {
            return;
        }
        const bool isMarkup = capabilities->contains("body-markup");
        const QVariantMap hints{{"desktop-entry", applicationId_}, {"suppress-sound", true}};
        constexpr uint replacesNone = 0;
        constexpr int serversOwnTime = -1;
        const QDBusMessage notify =
            serverCall("Notify", {"Calmora", replacesNone, applicationId_, title,
                                  isMarkup ? body.toHtmlEscaped() : body, QStringList(), hints,
                                  serversOwnTime});
        bus_.call(notify, QDBus::NoBlock);
    });
}

} // namespace calmora
