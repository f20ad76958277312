// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/ActivityTracker.h"
#include "platform/AwayTime.h"
#include "platform/Platform.h"
#include "support/Subscription.h"

#include <chrono>
#include <map>
#include <optional>
#include <string>

namespace calmora {

/// For how long each application has not been used. While it follows, an application is used when
/// it comes to the front, when it leaves it, and when recordUse() says so; time asleep or locked
/// does not count. Otherwise only activations count. Main thread.
class IdleTimes {
  public:
    /// The arguments must outlive this object.
    IdleTimes(Platform platform, ActivityTracker& tracker, AwayTime& away)
        : platform_(platform), tracker_(tracker), away_(away) {}

    /// Follows the front and the time away, or no longer. Off at first.
    void setFollowing(bool follows);

    /// Since the last use; absent for an application that was not in front since the program
    /// started. Never negative.
    [[nodiscard]] std::optional<std::chrono::duration<double>>
    idle(const std::string& bundleIdentifier) const;

    /// The application was used so long ago, at least.
    void recordUse(const std::string& bundleIdentifier, std::chrono::nanoseconds ago = {});

    /// Forgets what the tracker has forgotten.
    void prune();

  private:
    struct Use {
        ActivityTracker::Date at;
        /// The time away until then.
        std::chrono::nanoseconds away;
    };

    Platform platform_;
    ActivityTracker& tracker_;
    AwayTime& away_;
    std::map<std::string, Use> uses_;
    /// The time away when following began.
    std::chrono::nanoseconds awayBefore_{0};
    std::optional<std::string> front_;
    /// Held while it follows.
    Subscription activations_;
};

} // namespace calmora
