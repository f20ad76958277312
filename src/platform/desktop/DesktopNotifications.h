#pragma once

#include "platform/UserNotifications.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>

namespace calmora {

/// Notices by the desktop's notification server. Nothing ever waits for it: without one, or with
/// one that never answers, a notice is lost and nothing else happens.
/// Source: freedesktop Desktop Notifications Specification.
class DesktopNotifications final : public UserNotifications {
  public:
    /// `applicationId` names the program's desktop file and its icon.
    DesktopNotifications(const QDBusConnection& bus, const QString& applicationId);

    /// The notice's identifier stays here: the server gives each notice a number of its own, and
    /// none replaces another.
    void add(const UserNotification& notification) override;

  private:
    QDBusConnection bus_;
    QString applicationId_;
    /// Ends the waiting for answers.
    QObject answers_;
};

} // namespace calmora
