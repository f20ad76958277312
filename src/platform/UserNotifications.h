// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace calmora {

/// A desktop notification.
struct UserNotification {
    /// Identifies the notification; one with another identifier never replaces it.
    std::string identifier;
    std::string title;
    /// Plain text in UTF-8.
    std::string body;
};

/// Shows desktop notifications.
class UserNotifications {
  public:
    virtual ~UserNotifications() = default;

    /// Asks the desktop to show the notification without a sound. Returns immediately; failures are
    /// absorbed.
    virtual void add(const UserNotification& notification) = 0;
};

} // namespace calmora
