// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/AutoQuitRules.h"
#include "autoquit/IdleTimes.h"
#include "autoquit/IdleWarnings.h"
#include "autoquit/ProcessTreeSampler.h"
#include "model/ResourceMonitor.h"
#include "platform/Platform.h"
#include "platform/UseSources.h"
#include "platform/Workspace.h"
#include "support/Subscription.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace calmora {

class ActivityTracker;
class AppSettings;
class AwayTime;
class UserNotifications;

/// Auto-quit that leaves alone what is in use and gives a minute's notice of what it will quit. A
/// check first finds the idle applications, asks what is in use only if there are any, and then
/// warns. When a warning is due all is asked again before the application is asked to quit, once:
/// one that stays is left alone until it was used. Minutes below 1 count as 1. Main thread.
class SparingAutoQuit {
  public:
    /// The references must outlive this object.
    struct Surroundings {
        const AppSettings& settings;
        Platform platform;
        ActivityTracker& tracker;
        UserNotifications& notifications;
        UseSources& uses;
        AwayTime& away;
        /// Asks one instance politely to quit, on the next turn of the loop.
        std::function<void(const WorkspaceApplication&)> quit;
    };

    explicit SparingAutoQuit(Surroundings surroundings);

    /// Follows what idle times need, or no longer; off at first. Switching off withdraws all
    /// notices.
    void setOn(bool isOn);

    [[nodiscard]] bool isOn() const { return isOn_; }

    /// One pass with the current settings; what is in use is told later, from the loop.
    void check();

    /// Withdraws the notices that do not hold with the current settings.
    void review();

    /// For how long an application must not have been used before it is quit; absent means for
    /// ever.
    [[nodiscard]] std::optional<std::chrono::duration<double>> threshold() const;

    /// For how long each application has not been used.
    [[nodiscard]] const IdleTimes& idleTimes() const { return idleTimes_; }

    /// Why an application was left alone the last time it was its turn; forgotten when it comes to
    /// the front.
    [[nodiscard]] std::optional<SpareReason> lastSpared(const std::string& bundleIdentifier) const;

  private:
    /// The instances of an idle application that may be quit, or of one that was in use.
    using Instances = std::vector<WorkspaceApplication>;

    struct Pass {
        ApplicationSnapshot running = {};
        std::map<std::string, Instances> candidates = {};
    };

    [[nodiscard]] AutoQuitRules rules();
    [[nodiscard]] bool isIdle(const std::string& bundleIdentifier) const;
    /// Empty, without a look at what runs, if no application is idle. Also forgets when others were
    /// used that run no more.
    [[nodiscard]] Pass findCandidates();
    void withdrawOthers(const std::map<std::string, Instances>& candidates);
    void askUse();
    void decide(const UseReport& report);
    /// The reason that one of the instances has.
    [[nodiscard]] std::optional<SpareReason> spared(AutoQuitRules& rules,
                                                    const Instances& instances, const UseNow& use);
    void spare(const std::string& bundleIdentifier, SpareReason reason, const UseReport& report);
    /// The warning is due: quits the instances.
    void quit(const std::string& bundleIdentifier, const Instances& instances);
    void recordUse(const std::string& bundleIdentifier);
    void forget(const std::string& bundleIdentifier);
    void forget(const WorkspaceApplication& app);
    /// Takes the notice away when its application ends.
    void followEndings();

    Surroundings around_;
    IdleTimes idleTimes_;
    IdleWarnings warnings_;
    /// Not used by the rules as long as these spare what is in use.
    ResourceMonitor monitor_;
    ProcessTreeSampler sampler_;
    std::map<std::string, SpareReason> lastSpared_;
    /// The applications that were in use at the last look: looked at each time, so that idleness
    /// begins with the end of the use.
    std::set<std::string> inUse_;
    bool isOn_ = false;
    bool isReading_ = false;
    Subscription reading_;
    Subscription activations_;
    /// Only while a notice is shown: workspaces that are asked for endings look for them.
    Subscription endings_;
};

} // namespace calmora
