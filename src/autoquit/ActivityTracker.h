// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"
#include "support/Subscription.h"

#include <chrono>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace calmora {

/// Remembers when each application was last brought to the front. Nothing else counts as activity:
/// an application that stays in front ages like any other, and one that has not come to the front
/// since tracking started is unknown. All instances of an application share one entry; applications
/// without an identifier have none. Main thread.
class ActivityTracker {
  public:
    /// By the wall clock: setting it shifts every idle time by the same amount.
    using Date = std::chrono::system_clock::time_point;

    /// Starts empty and unsubscribed.
    explicit ActivityTracker(Platform platform) : platform_(platform) {}

    /// Records the frontmost application as activated now, and every activation from here on. Does
    /// nothing if it is tracking already.
    void startTracking();

    /// Sets the time of an application's latest activation.
    void recordActivation(const std::string& bundleIdentifier, Date date) {
        lastActiveTime_.insert_or_assign(bundleIdentifier, date);
    }

    /// The applications whose latest activation was more than `threshold` ago, in no particular
    /// order.
    [[nodiscard]] std::vector<std::string>
    inactiveApps(std::chrono::duration<double> threshold) const;

    /// Forgets all other applications.
    void pruneEntries(const std::set<std::string>& bundleIdentifiers) {
        std::erase_if(lastActiveTime_,
                      [&](const auto& entry) { return !bundleIdentifiers.contains(entry.first); });
    }

    /// The latest activation of each application seen.
    [[nodiscard]] const std::map<std::string, Date>& lastActiveTime() const {
        return lastActiveTime_;
    }

  private:
    Platform platform_;
    std::map<std::string, Date> lastActiveTime_;
    /// Empty until tracking starts.
    Subscription observer_;
};

} // namespace calmora
