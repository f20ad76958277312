#pragma once

#include <string>

namespace calmora {

/// A notice that the desktop shows beside the user's work.
struct UserNotification {
    /// Names this one notice; a later notice with another identifier never replaces it.
    std::string identifier;
    std::string title;
    /// Plain text in UTF-8.
    std::string body;
};

/// Shows notices.
class UserNotifications {
  public:
    virtual ~UserNotifications() = default;

    /// Hands the notice over to be shown at once, without a sound. Returns immediately; whether it
    /// is shown is up to the desktop, and a failure is absorbed.
    virtual void add(const UserNotification& notification) = 0;
};

} // namespace calmora
