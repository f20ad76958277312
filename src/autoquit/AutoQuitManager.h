#pragma once

#include "autoquit/ActivityTracker.h"
#include "autoquit/ProcessTreeSampler.h"
#include "model/AppQuitter.h"
#include "model/ResourceMonitor.h"
#include "platform/Platform.h"
#include "platform/ProcessId.h"
#include "support/Subscription.h"

#include <chrono>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

class AppSettings;
class InputGate;
class NeverQuitList;
class UserNotifications;
struct WorkspaceApplication;

/// Politely quits regular applications that have not been brought to the front for as long as the
/// settings say, and tells the user of each one that has gone. Which ones may go is decided by
/// the settings, the catalogue and, for what is not in it, the annex and the desktop entry. Its
/// tools are its own, apart from those of the list. Main thread.
class AutoQuitManager {
  public:
    /// How often the applications are looked at.
    static constexpr std::chrono::seconds checkInterval{60};
    /// Seconds in one unit of the setting autoQuitMinutes.
    static constexpr std::int64_t secondsPerMinute = 60;
    /// A cautious application that uses this much of one CPU, or more, is spared.
    static constexpr double busyCPUPercent = 3.0;
    /// How long an application that was asked may take.
    static constexpr std::chrono::milliseconds quitTimeout{1500};
    /// The file manager: never quit automatically.
    static constexpr std::string_view finderBundleIdentifier = "com.apple.finder";

    /// No timer yet. All arguments must outlive the manager. `input` is told to drop the clicks
    /// and keys of the time during which a pass waited.
    AutoQuitManager(AppSettings& settings, Platform platform, UserNotifications& notifications,
                    InputGate& input);

    /// When each application was last brought to the front.
    [[nodiscard]] ActivityTracker& activityTracker() { return activityTracker_; }

    /// Checks every minute from now on, first after one minute; a timer that runs is replaced.
    void start();

    /// One pass, with the settings as they are now: does nothing while auto-quit is off or no
    /// application is inactive. Negative minutes make every application that the tracker knows
    /// inactive; minutes whose number of seconds does not fit 64 bits make none inactive.
    /// An application that is still there after 1.5 seconds, because it asks the user or hangs,
    /// is left alone and looked at again in the next pass.
    /// Blocks for up to 1.5 seconds for each application that is asked.
    void checkAndQuitInactiveApps();

    /// Tells the user that an application was quit after so many minutes. Returns at once.
    void postAutoQuitNotification(const std::string& appName, std::int64_t minutes);

  private:
    [[nodiscard]] bool mayQuit(const WorkspaceApplication& app,
                               const std::set<std::string>& inactive,
                               const NeverQuitList& neverQuitApps);
    [[nodiscard]] bool isBusy(ProcessId process);
    /// True also while it cannot be told: the first look only takes the sample, and what is asked
    /// to quit has been quiet for a minute.
    [[nodiscard]] bool isTreeBusy(ProcessId process);
    void quit(const WorkspaceApplication& app);
    void dropSnapshotsOfOthers(const std::vector<WorkspaceApplication>& running);

    AppSettings& settings_;
    Platform platform_;
    UserNotifications& notifications_;
    InputGate& input_;
    ActivityTracker activityTracker_;
    AppQuitter appQuitter_;
    /// Samples cautious applications of the catalogue.
    ResourceMonitor resourceMonitor_;
    /// Samples all other cautious ones.
    ProcessTreeSampler treeSampler_;
    Subscription checkTimer_;
};

} // namespace calmora
