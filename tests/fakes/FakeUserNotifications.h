#pragma once

#include "platform/UserNotifications.h"

#include <vector>

namespace calmora {

/// Notices in memory.
class FakeUserNotifications final : public UserNotifications {
  public:
    void add(const UserNotification& notification) override { added.push_back(notification); }

    /// Every notice, in order.
    std::vector<UserNotification> added;
};

} // namespace calmora
