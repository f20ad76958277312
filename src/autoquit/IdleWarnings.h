// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AwayTime.h"
#include "platform/Platform.h"
#include "platform/UserNotifications.h"
#include "support/Subscription.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace calmora {

/// The notices that applications will be quit in a minute. Main thread.
class IdleWarnings {
  public:
    /// From when a notice is shown until its application may be quit.
    static constexpr std::chrono::minutes noticeTime{1};
    /// So many notices at once can be read in a minute; further applications wait.
    static constexpr std::size_t most = 3;

    /// What comes of a warning. Each is given the application's identifier.
    struct Events {
        /// It was shown for the whole time, or there is nobody to show it; it stays until it is
        /// withdrawn. One that was shown to nobody, as the user was away, is withdrawn instead.
        std::function<void(const std::string&)> onDue;
        /// The user wants to keep the application; the warning is withdrawn.
        std::function<void(const std::string&)> onKept;
        /// It may not have been seen; the warning is withdrawn.
        std::function<void(const std::string&)> onFailed;
    };

    /// The arguments must outlive this object.
    IdleWarnings(Platform platform, UserNotifications& notifications, const AwayTime& away,
                 Events events)
        : platform_(platform), notifications_(notifications), away_(away),
          events_(std::move(events)) {}

    /// Warns of an application that was not used for so many minutes, unless there are `most`
    /// warnings. An application is warned of once.
    void warn(const std::string& bundleIdentifier, const std::string& name, std::int64_t minutes);

    [[nodiscard]] bool contains(const std::string& bundleIdentifier) const {
        return warnings_.contains(bundleIdentifier);
    }

    [[nodiscard]] bool isDue(const std::string& bundleIdentifier) const {
        const auto found = warnings_.find(bundleIdentifier);
        return found != warnings_.end() && found->second.isDue;
    }

    /// The identifiers of the applications that are warned of.
    [[nodiscard]] std::vector<std::string> applications() const;

    /// Takes the notice off the screen, if there is one.
    void withdraw(const std::string& bundleIdentifier) { warnings_.erase(bundleIdentifier); }

    void withdrawAll() { warnings_.clear(); }

  private:
    struct Warning {
        Subscription notice = {};
        Subscription time = {};
        bool isDue = false;
    };

    void handle(const std::string& bundleIdentifier, NoticeEvent event);
    void startTime(const std::string& bundleIdentifier);

    Platform platform_;
    UserNotifications& notifications_;
    const AwayTime& away_;
    Events events_;
    std::map<std::string, Warning> warnings_;
};

} // namespace calmora
