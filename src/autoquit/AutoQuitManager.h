// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/ActivityTracker.h"
#include "autoquit/AutoQuitRules.h"
#include "autoquit/ProcessTreeSampler.h"
#include "autoquit/SparingAutoQuit.h"
#include "model/AppQuitter.h"
#include "model/QuitTogether.h"
#include "model/ResourceMonitor.h"
#include "platform/Platform.h"
#include "support/Subscription.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace calmora {

class AppSettings;
class AwayTime;
class ExtraSettings;
class InputGate;
class UserNotifications;
class UseSources;
struct WorkspaceApplication;

/// What auto-quit depends on. The references must outlive it.
struct AutoQuitSurroundings {
    AppSettings& settings;
    ExtraSettings& extras;
    Platform platform;
    UserNotifications& notifications;
    /// Drops the clicks and keys made while a pass blocks.
    InputGate& input;
    /// Both untouched unless what is in use shall be spared.
    UseSources& uses;
    AwayTime& away;
};

/// Politely quits regular applications that have not been brought to the front for as long as the
/// settings say, and notifies the user of each one. The settings and the catalogue decide which may
/// be quit; for an application that is not in the catalogue, the annex and the desktop entry do.
/// Shares no state with the list. With the preference sparesWhatIsInUse all but the quitting itself
/// is the matter of SparingAutoQuit, and nothing blocks. Main thread.
class AutoQuitManager {
  public:
    /// How often the applications are checked.
    static constexpr std::chrono::seconds checkInterval{60};
    /// How long an application may take to quit.
    static constexpr std::chrono::milliseconds quitTimeout{1500};

    /// Starts no timer.
    explicit AutoQuitManager(const AutoQuitSurroundings& surroundings);

    /// When each application was last brought to the front.
    [[nodiscard]] ActivityTracker& activityTracker() { return activityTracker_; }

    /// What is spared and warned of, for a forecast.
    [[nodiscard]] const SparingAutoQuit& sparing() const { return sparing_; }

    /// Checks every minute from now on, first after one minute. Replaces a running timer.
    void start();

    /// One pass with the current settings. Does nothing while auto-quit is off or no application is
    /// inactive. Negative minutes make every tracked application inactive; minutes whose number of
    /// seconds does not fit 64 bits make none inactive. An application that still runs after 1.5
    /// seconds, because it asks the user or hangs, is left alone until the next pass. Blocks for up
    /// to 1.5 seconds for each application that is asked.
    void checkAndQuitInactiveApps();

    /// Notifies the user that an application was quit after so many minutes. Returns at once.
    void postAutoQuitNotification(const std::string& appName, std::int64_t minutes);

  private:
    [[nodiscard]] bool mayQuit(const WorkspaceApplication& app,
                               const std::set<std::string>& inactive, AutoQuitRules& rules);
    void quit(const WorkspaceApplication& app);
    void dropSnapshotsOfOthers(const std::vector<WorkspaceApplication>& running);

    AppSettings& settings_;
    ExtraSettings& extras_;
    Platform platform_;
    UserNotifications& notifications_;
    InputGate& input_;
    ActivityTracker activityTracker_;
    AppQuitter appQuitter_;
    /// Samples cautious applications of the catalogue.
    ResourceMonitor resourceMonitor_;
    /// Samples all other cautious ones.
    ProcessTreeSampler treeSampler_;
    /// Quits what SparingAutoQuit has decided on, without blocking.
    QuitTogether together_;
    Subscription togetherGone_;
    SparingAutoQuit sparing_;
    Subscription sparingChanges_;
    Subscription settingChanges_;
    Subscription checkTimer_;
    /// Expires with the manager.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace calmora
