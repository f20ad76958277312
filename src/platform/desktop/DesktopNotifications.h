// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserNotifications.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <string>

class QDBusMessage;

namespace calmora {

/// Notifications by the desktop's server. Never waits: without a server that answers a notification
/// is lost.
/// Source: freedesktop Desktop Notifications Specification.
class DesktopNotifications final : public UserNotifications {
  public:
    /// `applicationId` names the program's desktop file and its icon.
    DesktopNotifications(const QDBusConnection& bus, const QString& applicationId);

    /// The identifier is not sent: the server numbers notifications, and none replaces another.
    void add(const UserNotification& notification) override;

    /// A server that does not answer within three seconds has failed.
    [[nodiscard]] Subscription show(const UserNotification& notification,
                                    const std::string& actionTitle,
                                    std::chrono::milliseconds lifetime,
                                    std::function<void(NoticeEvent)> handler) override;

  private:
    /// What the server is asked to show.
    struct Request {
        QString title;
        QString body;
        /// Title of the only button; empty means none.
        QString action = {};
        /// In milliseconds; negative leaves it to the server.
        int lifetime = -1;
    };

    /// Passes on the answer to Notify, or the error that came before.
    void notify(const Request& request, const std::function<void(const QDBusMessage&)>& done);

    QDBusConnection bus_;
    QString applicationId_;
    /// The answers' context, which ends with this object.
    QObject answers_;
};

} // namespace calmora
