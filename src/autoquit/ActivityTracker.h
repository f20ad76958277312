#pragma once

#include "platform/Platform.h"
#include "support/Subscription.h"

#include <chrono>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace calmora {

/// Remembers when each application was last brought to the front. Nothing else counts as
/// activity: an application that stays in front grows old like any other, and one that has not
/// come to the front since tracking started is unknown. All instances of an application share one
/// entry; applications without an identifier have none. Main thread.
class ActivityTracker {
  public:
    /// A moment of the wall clock: setting the clock shifts every idle time by the same amount.
    using Date = std::chrono::system_clock::time_point;

    /// Knows nothing yet and listens to nothing.
    explicit ActivityTracker(Platform platform);

    /// Records the frontmost application as activated now, and from here on every activation.
    /// Does nothing when it is tracking already. Tracking ends with the tracker.
    void startTracking();

    /// Sets the moment of an application's latest activation.
    void recordActivation(const std::string& bundleIdentifier, Date date);

    /// The applications whose latest activation lies more than `threshold` in the past, in no
    /// particular order; one that lies exactly that far back is not among them.
    [[nodiscard]] std::vector<std::string>
    inactiveApps(std::chrono::duration<double> threshold) const;

    /// Forgets every application that is not among these.
    void pruneEntries(const std::set<std::string>& bundleIdentifiers);

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
