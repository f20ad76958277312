#include "platform/NotificationCenter.h"

#include <utility>

namespace calmora {

Subscription NotificationCenter::observe(const std::string& name, Handler handler) {
    return observers_[name].connect(std::move(handler));
}

void NotificationCenter::post(const Notification& notification) {
    if (const auto found = observers_.find(notification.name); found != observers_.end()) {
        found->second.emit(notification);
    }
}

} // namespace calmora
