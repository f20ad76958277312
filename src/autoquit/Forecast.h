// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/ProcessTreeSampler.h"
#include "autoquit/SpareReason.h"
#include "model/ResourceMonitor.h"
#include "platform/Platform.h"
#include "platform/UseSources.h"
#include "platform/Workspace.h"
#include "support/Subscription.h"

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace calmora {

class AppSettings;
class AutoQuitRules;
class SparingAutoQuit;
struct UseNow;

/// What auto-quit will do to one running application, as things are.
struct Prospect {
    WorkspaceApplication application;
    /// Why it is left alone; absent if it will be quit.
    std::optional<SpareReason> reason = {};
    /// Until it is quit, at least one minute; absent if it is left alone or the time is endless.
    std::optional<std::chrono::minutes> left = {};
    /// It will be quit only if it does not use the CPU then.
    bool unlessBusy = false;
    /// Why it was left alone the last time it was its turn.
    std::optional<SpareReason> before = {};
};

/// Says what auto-quit will do to each running regular application, by the rules of auto-quit
/// itself. Measures how busy they are from one reading to the next, apart from auto-quit. Main
/// thread.
class Forecast {
  public:
    /// The arguments must outlive the forecast.
    Forecast(const AppSettings& settings, Platform platform, const SparingAutoQuit& sparing,
             UseSources& uses)
        : settings_(settings), platform_(platform), sparing_(sparing), uses_(uses),
          monitor_(platform), sampler_(platform) {}

    /// Calls `handler` once from the loop, unless the token ends before, in the order of the
    /// workspace. Asks what is in use only if that is to be spared.
    [[nodiscard]] Subscription read(std::function<void(const std::vector<Prospect>&)> handler);

  private:
    [[nodiscard]] std::vector<Prospect> prospects(const UseReport* report);
    [[nodiscard]] Prospect prospect(const WorkspaceApplication& app, AutoQuitRules& rules,
                                    const UseNow* use);

    const AppSettings& settings_;
    Platform platform_;
    const SparingAutoQuit& sparing_;
    UseSources& uses_;
    ResourceMonitor monitor_;
    ProcessTreeSampler sampler_;
};

} // namespace calmora
