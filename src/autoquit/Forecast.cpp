// SPDX-License-Identifier: MIT
#include "autoquit/Forecast.h"

#include "autoquit/AutoQuitRules.h"
#include "autoquit/SparingAutoQuit.h"
#include "platform/RunLoop.h"
#include "settings/AppSettings.h"

#include <algorithm>
#include <utility>

namespace calmora {

Subscription Forecast::read(std::function<void(const std::vector<Prospect>&)> handler) {
    if (sparing_.isOn()) {
        return uses_.read([this, handler = std::move(handler)](const UseReport& report) {
            handler(prospects(&report));
        });
    }
    return platform_.runLoop.nextTurn(
        [this, handler = std::move(handler)] { handler(prospects(/*report=*/nullptr)); });
}

std::vector<Prospect> Forecast::prospects(const UseReport* report) {
    const ApplicationSnapshot running = platform_.workspace.runningApplications();
    std::optional<UseNow> use;
    if (const auto limit = sparing_.threshold(); report && limit) {
        const auto frontmost = platform_.workspace.frontmostApplication();
        use = UseNow{*report, frontmost ? frontmost->bundleIdentifier : std::nullopt, *limit};
    }
    AutoQuitRules rules(settings_, platform_, monitor_, sampler_);
    sampler_.beginPass(running);
    std::vector<Prospect> all;
    for (const WorkspaceApplication& app : running) {
        if (app.activationPolicy == ActivationPolicy::regular) {
            all.push_back(prospect(app, rules, use ? &*use : nullptr));
        }
    }
    return all;
}

Prospect Forecast::prospect(const WorkspaceApplication& app, AutoQuitRules& rules,
                            const UseNow* use) {
    Prospect result{.application = app};
    const Standing standing = rules.standing(app);
    if (standing.never) {
        result.reason = standing.never;
        return result;
    }
    const std::string& identifier = *app.bundleIdentifier;
    result.before = sparing_.lastSpared(identifier);
    const auto idle = sparing_.idleTimes().idle(identifier);
    const auto limit = sparing_.threshold();
    result.unlessBusy = standing.policy.behavior == IdleBehavior::cautious;
    result.reason = rules.sparedNow(app, standing.policy, use);
    if (result.reason == SpareReason::isNotMeasuredYet) {
        result.reason.reset(); // It will have been when it matters.
    }
    if (result.before == SpareReason::wasAsked) {
        result.reason = SpareReason::wasAsked;
    } else if (!idle && !result.reason) {
        result.reason = SpareReason::wasNotInFrontYet;
    }
    if (!result.reason && limit) {
        // Further checks may pass until then; nobody counts seconds.
        const auto left = std::chrono::ceil<std::chrono::minutes>(*limit - *idle);
        result.left = std::max(left, std::chrono::minutes(1));
    }
    return result;
}

} // namespace calmora
