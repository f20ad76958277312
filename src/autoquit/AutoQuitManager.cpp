// SPDX-License-Identifier: MIT
#include "autoquit/AutoQuitManager.h"

#include "autoquit/IdlePolicy.h"
#include "autoquit/catalogue/KnownApps.h"
#include "autoquit/catalogue/LinuxAnnex.h"
#include "platform/Clock.h"
#include "platform/EventMonitor.h"
#include "platform/LocalizedStrings.h"
#include "platform/RunLoop.h"
#include "platform/UserNotifications.h"
#include "platform/Workspace.h"
#include "settings/AppSettings.h"
#include "settings/NeverQuitList.h"
#include "support/ShownName.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <utility>

namespace calmora {
namespace {

/// Absent if the product does not fit 64 bits.
std::optional<std::chrono::duration<double>> threshold(std::int64_t minutes) {
    constexpr std::int64_t unit = AutoQuitManager::secondsPerMinute;
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() / unit;
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min() / unit;
    if (minutes > most || minutes < least) {
        return std::nullopt;
    }
    return std::chrono::duration<double>(static_cast<double>(minutes * unit));
}

/// Seconds since 1970 as the shortest decimal fraction that reads back as the same value.
std::string secondsText(std::chrono::system_clock::time_point date) {
    const auto whole = std::chrono::floor<std::chrono::seconds>(date);
    const double seconds = static_cast<double>(whole.time_since_epoch().count()) +
                           std::chrono::duration<double>(date - whole).count();
    std::array<char, 400> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), seconds,
                                            std::chars_format::fixed);
    std::string text(digits.data(), end);
    if (text.find('.') == std::string::npos) {
        text += ".0";
    }
    return text;
}

} // namespace

AutoQuitManager::AutoQuitManager(AppSettings& settings, Platform platform,
                                 UserNotifications& notifications, InputGate& input)
    : settings_(settings), platform_(platform), notifications_(notifications), input_(input),
      activityTracker_(platform), appQuitter_(platform), resourceMonitor_(platform),
      treeSampler_(platform) {}

void AutoQuitManager::start() {
    checkTimer_ = platform_.runLoop.repeat(checkInterval, [this] { checkAndQuitInactiveApps(); });
}

void AutoQuitManager::checkAndQuitInactiveApps() {
    if (!settings_.autoQuitEnabled()) {
        return;
    }
    const auto limit = threshold(settings_.autoQuitMinutes());
    if (!limit) {
        return;
    }
    const std::vector<std::string> idle = activityTracker_.inactiveApps(*limit);
    if (idle.empty()) {
        return;
    }
    const std::set<std::string> inactive(idle.begin(), idle.end());
    const std::vector<WorkspaceApplication> running = platform_.workspace.runningApplications();
    const NeverQuitList neverQuitApps(settings_, platform_.workspace);
    treeSampler_.beginPass(running);
    std::set<std::string> regular;
    const std::weak_ptr alive = alive_;
    for (const WorkspaceApplication& app : running) {
        if (app.activationPolicy != ActivationPolicy::regular) {
            continue;
        }
        if (app.bundleIdentifier) {
            regular.insert(*app.bundleIdentifier);
        }
        if (mayQuit(app, inactive, neverQuitApps)) {
            quit(app);
        }
        if (alive.expired()) { // Whoever was notified may have ended auto-quit.
            return;
        }
    }
    activityTracker_.pruneEntries(regular);
    dropSnapshotsOfOthers(running);
}

bool AutoQuitManager::mayQuit(const WorkspaceApplication& app,
                              const std::set<std::string>& inactive,
                              const NeverQuitList& neverQuitApps) {
    if (!app.isActivityKnown || !app.bundleIdentifier ||
        !inactive.contains(*app.bundleIdentifier) || app.mustAnswerSoon) {
        return false;
    }
    const std::string& bundleIdentifier = *app.bundleIdentifier;
    if (settings_.neverQuitMusicApps() && isMusicPlayer(bundleIdentifier)) {
        return false;
    }
    if (bundleIdentifier == finderBundleIdentifier ||
        neverQuitApps.contains(bundleIdentifier, app.otherIdentifiers)) {
        return false;
    }
    const std::optional<KnownAppInfo> known = KnownApps::lookup(bundleIdentifier);
    const IdlePolicy policy = idlePolicy(
        bundleIdentifier, known,
        known ? std::nullopt : platform_.workspace.installedApplication(bundleIdentifier));
    switch (policy.behavior) {
    case IdleBehavior::safeToQuit:
        return true;
    case IdleBehavior::cautious:
        // Each is sampled, whatever the others do.
        return std::ranges::count_if(app.processes(), [&](ProcessId process) {
                   return policy.countsDescendants ? isTreeBusy(process) : isBusy(process);
               }) == 0;
    case IdleBehavior::neverQuit:
        return false;
    }
    return false;
}

bool AutoQuitManager::isBusy(ProcessId process) {
    const std::optional<ResourceUsage> usage = resourceMonitor_.getUsage(process);
    return usage && usage->cpuPercent >= busyCPUPercent;
}

bool AutoQuitManager::isTreeBusy(ProcessId process) {
    const std::optional<double> percent = treeSampler_.cpuPercent(process);
    return !percent || *percent >= busyCPUPercent;
}

void AutoQuitManager::quit(const WorkspaceApplication& app) {
    const AppQuitter::Application live = appQuitter_.lookupApp(app.processIdentifier);
    if (!live || !live->terminate()) {
        return;
    }
    const bool isGone = appQuitter_.waitForEnd(*live, quitTimeout);
    input_.discardQueuedInput();
    if (isGone) {
        postAutoQuitNotification(app.localizedName.value_or(app.bundleIdentifier.value_or("")),
                                 settings_.autoQuitMinutes());
    }
}

void AutoQuitManager::postAutoQuitNotification(const std::string& appName, std::int64_t minutes) {
    UserNotification notification;
    notification.title = "Calmora";
    notification.body =
        fillPlaceholders(platform_.strings.text("auto_quit_notification %@ %lld", minutes),
                         {shownName(appName), minutes});
    notification.identifier = "autoQuit-" + appName + "-" + secondsText(platform_.clock.now());
    notifications_.add(notification);
}

void AutoQuitManager::dropSnapshotsOfOthers(const std::vector<WorkspaceApplication>& running) {
    // The pid of an ended process may be reused.
    ResourceMonitor::Snapshots kept = resourceMonitor_.snapshots();
    const auto isGone = [&](const auto& entry) { return !isListed(running, entry.first); };
    if (std::erase_if(kept, isGone) > 0) {
        resourceMonitor_.setSnapshots(std::move(kept));
    }
}

} // namespace calmora
