// SPDX-License-Identifier: MIT
#pragma once

#include "support/Signal.h"
#include "support/Subscription.h"

#include <any>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace calmora {

/// A message within the program, delivered by name.
struct Notification {
    std::string name;
    /// The payload that this name promises.
    std::map<std::string, std::any> userInfo;

    /// The entry under a key; null if there is none or it has another type.
    template <typename Value>
    [[nodiscard]] const Value* info(const std::string& key) const {
        const auto found = userInfo.find(key);
        return found != userInfo.end() ? std::any_cast<Value>(&found->second) : nullptr;
    }
};

/// Names of the notifications about the program's own menus, including the one that a panel draws
/// for the status item. No user info. Posted by the code that shows the menu.
struct MenuNotification {
    static constexpr const char* didBeginTracking = "NSMenuDidBeginTrackingNotification";
    static constexpr const char* didEndTracking = "NSMenuDidEndTrackingNotification";
};

/// Delivers notifications between independent parts of the program. Main thread.
class NotificationCenter {
  public:
    using Handler = std::function<void(const Notification&)>;

    /// Calls `handler` for each notification of this name until the token ends.
    [[nodiscard]] Subscription observe(const std::string& name, Handler handler) {
        return observers_[name].connect(std::move(handler));
    }

    /// Calls the observers of the name, in the order in which they subscribed, and returns.
    void post(const Notification& notification) {
        if (const auto found = observers_.find(notification.name); found != observers_.end()) {
            found->second.emit(notification);
        }
    }

  private:
    std::map<std::string, Signal<const Notification&>> observers_;
};

} // namespace calmora
