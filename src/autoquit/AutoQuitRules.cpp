// SPDX-License-Identifier: MIT
#include "autoquit/AutoQuitRules.h"

#include "autoquit/ProcessTreeSampler.h"
#include "autoquit/UseRules.h"
#include "autoquit/catalogue/KnownApps.h"
#include "autoquit/catalogue/LinuxAnnex.h"
#include "model/ResourceMonitor.h"
#include "platform/Workspace.h"
#include "settings/AppSettings.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <vector>

namespace calmora {
namespace {

/// What runs in a terminal is lost with it, which is worth its own word.
SpareReason neverReason(const std::optional<InstalledApplication>& installed) {
    return installed && (installed->needsTerminal || isTerminal(installed->categories))
               ? SpareReason::isTerminal
               : SpareReason::isReliedOn;
}

} // namespace

std::optional<std::chrono::duration<double>> autoQuitThreshold(std::int64_t minutes) {
    constexpr std::int64_t unit = 60;
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() / unit;
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min() / unit;
    if (minutes > most || minutes < least) {
        return std::nullopt;
    }
    return std::chrono::duration<double>(static_cast<double>(minutes * unit));
}

std::string nameOf(const WorkspaceApplication& app) {
    return app.localizedName.value_or(app.bundleIdentifier.value_or(""));
}

AutoQuitRules::AutoQuitRules(const AppSettings& settings, Platform platform,
                             ResourceMonitor& monitor, ProcessTreeSampler& sampler)
    : settings_(settings), platform_(platform), neverQuitApps_(settings, platform.workspace),
      monitor_(monitor), sampler_(sampler) {}

Standing AutoQuitRules::standing(const WorkspaceApplication& app) const {
    if (!app.isActivityKnown || !app.bundleIdentifier || app.mustAnswerSoon) {
        return {.never = !app.bundleIdentifier  ? SpareReason::isUnidentified
                         : !app.isActivityKnown ? SpareReason::activityIsUnknown
                                                : SpareReason::mustAnswerSoon};
    }
    const std::string& bundleIdentifier = *app.bundleIdentifier;
    if (settings_.neverQuitMusicApps() && isMusicPlayer(bundleIdentifier)) {
        return {.never = SpareReason::isMusicPlayer};
    }
    if (bundleIdentifier == finderBundleIdentifier) {
        return {.never = SpareReason::isFileManager};
    }
    if (neverQuitApps_.contains(bundleIdentifier, app.otherIdentifiers)) {
        return {.never = SpareReason::isOnNeverQuitList};
    }
    const std::optional<KnownAppInfo> known = KnownApps::lookup(bundleIdentifier);
    const std::optional<InstalledApplication> installed =
        known ? std::nullopt : platform_.workspace.installedApplication(bundleIdentifier);
    Standing standing{.policy = idlePolicy(bundleIdentifier, known, installed)};
    if (standing.policy.behavior == IdleBehavior::neverQuit) {
        standing.never = neverReason(installed);
    }
    return standing;
}

std::optional<SpareReason> AutoQuitRules::sparedNow(const WorkspaceApplication& app,
                                                    IdlePolicy policy, const UseNow* use) {
    if (use) {
        if (const auto reason = useOfTree(app, *use)) {
            return reason;
        }
    }
    return policy.behavior == IdleBehavior::cautious
               ? busyReason(app, policy.countsDescendants || use)
               : std::nullopt;
}

std::optional<SpareReason> AutoQuitRules::useOfTree(const WorkspaceApplication& app,
                                                    const UseNow& use) {
    std::vector<ProcessId> tree;
    for (const ProcessId process : app.processes()) {
        std::ranges::copy(sampler_.tree().withDescendants(process), std::back_inserter(tree));
    }
    const bool isInFront = use.front && use.front == app.bundleIdentifier;
    return useOf(tree, isInFront, use.report, use.recently);
}

std::optional<SpareReason> AutoQuitRules::busyReason(const WorkspaceApplication& app,
                                                     bool countsDescendants) {
    std::optional<SpareReason> reason;
    // Each is sampled, whatever the others do.
    for (const ProcessId process : app.processes()) {
        std::optional<double> percent;
        if (countsDescendants) {
            percent = sampler_.cpuPercent(process);
            if (!percent && !reason) {
                // The first pass only takes a sample, so that an application has been idle for a
                // minute before it is asked to quit.
                reason = SpareReason::isNotMeasuredYet;
            }
        } else if (const auto usage = monitor_.getUsage(process)) {
            percent = usage->cpuPercent;
        }
        if (percent && *percent >= busyCPUPercent) {
            reason = SpareReason::isBusy;
        }
    }
    return reason;
}

} // namespace calmora
