// SPDX-License-Identifier: MIT
#include "autoquit/AutoQuitManager.h"

#include "platform/Clock.h"
#include "platform/EventMonitor.h"
#include "platform/LocalizedStrings.h"
#include "platform/RunLoop.h"
#include "platform/UserNotifications.h"
#include "platform/Workspace.h"
#include "settings/AppSettings.h"
#include "settings/ExtraSettings.h"
#include "support/ShownName.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace calmora {
namespace {

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

AutoQuitManager::AutoQuitManager(const AutoQuitSurroundings& surroundings)
    : settings_(surroundings.settings), extras_(surroundings.extras),
      platform_(surroundings.platform), notifications_(surroundings.notifications),
      input_(surroundings.input), activityTracker_(platform_), appQuitter_(platform_),
      resourceMonitor_(platform_), treeSampler_(platform_),
      together_(platform_, platformOperations(platform_)),
      sparing_({.settings = settings_,
                .platform = platform_,
                .tracker = activityTracker_,
                .notifications = notifications_,
                .uses = surroundings.uses,
                .away = surroundings.away,
                .quit = [this](const WorkspaceApplication& app) {
                    together_.begin({{.pid = app.processIdentifier,
                                      .name = nameOf(app),
                                      .bundleIdentifier = app.bundleIdentifier}},
                                    /*force=*/false);
                }}) {
    togetherGone_ = together_.onGone([this](const std::vector<AppInfo>& gone) {
        for (const AppInfo& app : gone) {
            postAutoQuitNotification(app.name, settings_.autoQuitMinutes());
        }
    });
    sparing_.setOn(extras_.sparesWhatIsInUse());
    sparingChanges_ =
        extras_.sparesWhatIsInUse.observe([this] { sparing_.setOn(extras_.sparesWhatIsInUse()); });
    settingChanges_ = settings_.observeAny([this] { sparing_.review(); });
}

void AutoQuitManager::start() {
    checkTimer_ = platform_.runLoop.repeat(checkInterval, [this] { checkAndQuitInactiveApps(); });
}

void AutoQuitManager::checkAndQuitInactiveApps() {
    if (sparing_.isOn()) {
        sparing_.check();
        return;
    }
    if (!settings_.autoQuitEnabled()) {
        return;
    }
    const auto limit = autoQuitThreshold(settings_.autoQuitMinutes());
    if (!limit) {
        return;
    }
    const std::vector<std::string> idle = activityTracker_.inactiveApps(*limit);
    if (idle.empty()) {
        return;
    }
    const std::set<std::string> inactive(idle.begin(), idle.end());
    const std::vector<WorkspaceApplication> running = platform_.workspace.runningApplications();
    AutoQuitRules rules(settings_, platform_, resourceMonitor_, treeSampler_);
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
        if (mayQuit(app, inactive, rules)) {
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
                              const std::set<std::string>& inactive, AutoQuitRules& rules) {
    if (!app.bundleIdentifier || !inactive.contains(*app.bundleIdentifier)) {
        return false;
    }
    const Standing standing = rules.standing(app);
    return !standing.never && !rules.sparedNow(app, standing.policy, /*use=*/nullptr);
}

void AutoQuitManager::quit(const WorkspaceApplication& app) {
    const AppQuitter::Application live = appQuitter_.lookupApp(app.processIdentifier);
    if (!live || !live->terminate()) {
        return;
    }
    const bool isGone = appQuitter_.waitForEnd(*live, quitTimeout);
    input_.discardQueuedInput();
    if (isGone) {
        postAutoQuitNotification(nameOf(app), settings_.autoQuitMinutes());
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
