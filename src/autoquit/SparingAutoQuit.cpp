// SPDX-License-Identifier: MIT
#include "autoquit/SparingAutoQuit.h"

#include "autoquit/ActivityTracker.h"
#include "platform/Clock.h"
#include "settings/AppSettings.h"

#include <algorithm>
#include <utility>

namespace calmora {

SparingAutoQuit::SparingAutoQuit(Surroundings surroundings)
    : around_(std::move(surroundings)), idleTimes_(around_.platform, around_.tracker, around_.away),
      warnings_(around_.platform, around_.notifications, around_.away,
                {.onDue = [this](const std::string&) { askUse(); },
                 .onKept = [this](const std::string& application) { recordUse(application); },
                 .onFailed =
                     [this](const std::string& application) {
                         lastSpared_[application] = SpareReason::noticeFailed;
                     }}),
      monitor_(around_.platform), sampler_(around_.platform) {}

void SparingAutoQuit::setOn(bool isOn) {
    if (isOn_ == isOn) {
        return;
    }
    isOn_ = isOn;
    idleTimes_.setFollowing(isOn);
    warnings_.withdrawAll();
    lastSpared_.clear();
    inUse_.clear();
    reading_.reset();
    isReading_ = false;
    activations_.reset();
    endings_.reset();
    if (!isOn) {
        return;
    }
    activations_ = around_.platform.workspace.onActivated([this](const WorkspaceApplication& app) {
        forget(app);
        review(); // What has left the front was used, too.
    });
}

void SparingAutoQuit::forget(const WorkspaceApplication& app) {
    if (app.bundleIdentifier) {
        forget(*app.bundleIdentifier);
    }
}

void SparingAutoQuit::followEndings() {
    if (warnings_.applications().empty()) {
        endings_.reset();
    } else if (!endings_) {
        endings_ = around_.platform.workspace.onTerminated(
            [this](const WorkspaceApplication& app) { forget(app); });
    }
}

std::optional<SpareReason> SparingAutoQuit::lastSpared(const std::string& bundleIdentifier) const {
    const auto found = lastSpared_.find(bundleIdentifier);
    return found != lastSpared_.end() ? std::optional(found->second) : std::nullopt;
}

void SparingAutoQuit::forget(const std::string& bundleIdentifier) {
    warnings_.withdraw(bundleIdentifier);
    lastSpared_.erase(bundleIdentifier);
    inUse_.erase(bundleIdentifier);
}

void SparingAutoQuit::recordUse(const std::string& bundleIdentifier) {
    around_.tracker.recordActivation(bundleIdentifier, around_.platform.clock.now());
    idleTimes_.recordUse(bundleIdentifier);
    forget(bundleIdentifier);
}

std::optional<std::chrono::duration<double>> SparingAutoQuit::threshold() const {
    const std::int64_t minutes = around_.settings.autoQuitMinutes();
    return autoQuitThreshold(isOn_ ? std::max<std::int64_t>(minutes, 1) : minutes);
}

AutoQuitRules SparingAutoQuit::rules() {
    return {around_.settings, around_.platform, monitor_, sampler_};
}

bool SparingAutoQuit::isIdle(const std::string& bundleIdentifier) const {
    const auto limit = threshold();
    return limit && idleTimes_.idle(bundleIdentifier) > *limit - IdleWarnings::noticeTime;
}

SparingAutoQuit::Pass SparingAutoQuit::findCandidates() {
    if (!around_.settings.autoQuitEnabled()) {
        return {};
    }
    std::set<std::string> idle;
    for (const auto& [application, date] : around_.tracker.lastActiveTime()) {
        const bool wasAsked = lastSpared(application) == SpareReason::wasAsked;
        if (!wasAsked && (isIdle(application) || inUse_.contains(application))) {
            idle.insert(application);
        }
    }
    if (idle.empty()) {
        return {};
    }
    Pass pass{.running = around_.platform.workspace.runningApplications()};
    const AutoQuitRules byRules = rules();
    std::set<std::string> regular;
    for (const WorkspaceApplication& app : pass.running) {
        if (app.activationPolicy != ActivationPolicy::regular || !app.bundleIdentifier) {
            continue;
        }
        regular.insert(*app.bundleIdentifier);
        if (idle.contains(*app.bundleIdentifier) && !byRules.standing(app).never) {
            pass.candidates[*app.bundleIdentifier].push_back(app);
        }
    }
    around_.tracker.pruneEntries(regular);
    idleTimes_.prune();
    return pass;
}

void SparingAutoQuit::withdrawOthers(const std::map<std::string, Instances>& candidates) {
    for (const std::string& application : warnings_.applications()) {
        if (!candidates.contains(application)) {
            warnings_.withdraw(application);
        }
    }
}

void SparingAutoQuit::review() {
    if (!warnings_.applications().empty()) {
        withdrawOthers(findCandidates().candidates);
    }
}

void SparingAutoQuit::check() {
    isReading_ = false; // An answer that is not there after a minute will not come.
    const Pass pass = findCandidates();
    withdrawOthers(pass.candidates);
    followEndings();
    if (std::ranges::any_of(pass.candidates, [this](const auto& candidate) {
            return !warnings_.contains(candidate.first);
        })) {
        askUse();
    }
}

void SparingAutoQuit::askUse() {
    if (!std::exchange(isReading_, true)) {
        reading_ = around_.uses.read([this](const UseReport& report) {
            isReading_ = false;
            decide(report);
        });
    }
}

void SparingAutoQuit::decide(const UseReport& report) {
    const auto limit = threshold();
    const Pass pass = findCandidates();
    withdrawOthers(pass.candidates);
    if (!limit || pass.candidates.empty()) {
        return;
    }
    const auto frontmost = around_.platform.workspace.frontmostApplication();
    const UseNow use{report, frontmost ? frontmost->bundleIdentifier : std::nullopt, *limit};
    AutoQuitRules byRules = rules();
    sampler_.beginPass(pass.running);
    for (const auto& [application, instances] : pass.candidates) {
        const bool isDue = warnings_.isDue(application);
        if (warnings_.contains(application) && !isDue) {
            continue;
        }
        if (const auto reason = spared(byRules, instances, use)) {
            spare(application, *reason, report);
        } else if (!isIdle(application)) {
            inUse_.erase(application);
            warnings_.withdraw(application);
        } else if (!isDue) {
            warnings_.warn(application, nameOf(instances.front()),
                           std::max<std::int64_t>(around_.settings.autoQuitMinutes(), 1));
        } else if (idleTimes_.idle(application) > *limit) {
            quit(application, instances);
        } else { // The clock was set back.
            warnings_.withdraw(application);
        }
    }
    followEndings();
}

std::optional<SpareReason> SparingAutoQuit::spared(AutoQuitRules& rules, const Instances& instances,
                                                   const UseNow& use) {
    std::optional<SpareReason> reason;
    for (const WorkspaceApplication& app : instances) {
        // Each is sampled, whatever the others do.
        const auto own = rules.sparedNow(app, rules.standing(app).policy, &use);
        reason = reason ? reason : own;
    }
    return reason;
}

void SparingAutoQuit::spare(const std::string& bundleIdentifier, SpareReason reason,
                            const UseReport& report) {
    warnings_.withdraw(bundleIdentifier);
    lastSpared_[bundleIdentifier] = reason;
    if (isUse(reason)) {
        if (reason != SpareReason::isInFront) { // Its end is told.
            inUse_.insert(bundleIdentifier);
        }
        idleTimes_.recordUse(bundleIdentifier,
                             reason == SpareReason::isInFront
                                 ? report.sinceInput.value_or(std::chrono::milliseconds(0))
                                 : std::chrono::milliseconds(0));
    }
}

void SparingAutoQuit::quit(const std::string& bundleIdentifier, const Instances& instances) {
    warnings_.withdraw(bundleIdentifier);
    // Until it ends or is used: nobody wants to be asked to save every other minute.
    lastSpared_[bundleIdentifier] = SpareReason::wasAsked;
    for (const WorkspaceApplication& app : instances) {
        around_.quit(app);
    }
}

} // namespace calmora
