// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserNotifications.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>

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

  private:
    QDBusConnection bus_;
    QString applicationId_;
    /// The answers' context, which ends with this object.
    QObject answers_;
};

} // namespace calmora
