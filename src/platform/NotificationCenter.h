#pragma once

#include "support/Signal.h"
#include "support/Subscription.h"

#include <any>
#include <functional>
#include <map>
#include <string>

namespace calmora {

/// A message within the program, told by name to whoever observes that name.
struct Notification {
    std::string name;
    /// What the poster of this name promises to give.
    std::map<std::string, std::any> userInfo;

    /// The entry under a key; null when there is none or it has another type.
    template <typename Value>
    [[nodiscard]] const Value* info(const std::string& key) const {
        const auto found = userInfo.find(key);
        return found != userInfo.end() ? std::any_cast<Value>(&found->second) : nullptr;
    }
};

/// Names of the notices about the program's own menus, the one that a panel draws for the status
/// item included. No user info. Posted by whoever shows the menu.
struct MenuNotification {
    static constexpr const char* didBeginTracking = "NSMenuDidBeginTrackingNotification";
    static constexpr const char* didEndTracking = "NSMenuDidEndTrackingNotification";
};

/// Carries notifications between parts of the program that do not know each other. Main thread.
class NotificationCenter {
  public:
    using Handler = std::function<void(const Notification&)>;

    /// Calls `handler` for each notification of this name until the token ends.
    [[nodiscard]] Subscription observe(const std::string& name, Handler handler);

    /// Tells the observers of the name, in the order in which they came, and returns.
    void post(const Notification& notification);

  private:
    std::map<std::string, Signal<const Notification&>> observers_;
};

} // namespace calmora
