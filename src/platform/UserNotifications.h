// SPDX-License-Identifier: MIT
#pragma once

#include "support/Subscription.h"

#include <chrono>
#include <functional>
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

/// What becomes of a notice that the user can answer.
enum class NoticeEvent {
    /// The server has taken it.
    shown,
    /// There is no server.
    noServer,
    /// There is a server, but it did not take the notice, or not in time.
    failed,
    /// The user chose the action.
    actionChosen,
};

/// Shows desktop notifications.
class UserNotifications {
  public:
    virtual ~UserNotifications() = default;

    /// Asks the desktop to show the notification without a sound. Returns immediately; failures are
    /// absorbed.
    virtual void add(const UserNotification& notification) = 0;

    /// Shows a notification without a sound and with a button, which is left out where the server
    /// has none, for up to `lifetime`. Calls `handler` from the loop: once with the outcome, and
    /// once more if the user chooses the action. Withdraws the notification when the token ends;
    /// nothing is called after that.
    [[nodiscard]] virtual Subscription show(const UserNotification& notification,
                                            const std::string& actionTitle,
                                            std::chrono::milliseconds lifetime,
                                            std::function<void(NoticeEvent)> handler) = 0;
};

} // namespace calmora
