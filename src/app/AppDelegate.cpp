// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "autoquit/AutoQuitManager.h"
#include "autoquit/Forecast.h"
#include "platform/Bundle.h"
#include "platform/EventMonitor.h"
#include "platform/LocalizedStrings.h"
#include "support/ShownName.h"
#include "ui/AppListViewModel.h"
#include "ui/ForceQuitConfirmation.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace calmora {

AppDelegate::AppDelegate(const AppSurroundings& surroundings, std::unique_ptr<Updater> updater)
    : surroundings_(surroundings), settings_(surroundings.defaults), extras_(surroundings.defaults),
      reopenList_(surroundings.platform.workspace, surroundings.launcher),
      updaterController_(std::move(updater)), together_(surroundings.platform),
      hotKeyManager_(surroundings.shortcuts) {
    quitProceeds_ = together_.onGone([this](const std::vector<AppInfo>& gone) {
        for (const ProcessId pid : reopenList_.restartPrepared(gone)) {
            together_.expectReturn(pid);
        }
    });
    quitFinishes_ = together_.onFinished(
        [this](const std::vector<AppInfo>& ended) { reopenList_.remember(ended); });
    quittingTogetherChanges_ = extras_.quitsTogether.observe([this] {
        if (!extras_.quitsTogether()) {
            together_.cancel();
            together_.forget();
        }
    });
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    popover_ = surroundings_.toolkit.makePopover(settings_, extras_, together_);
    popover_->setContentSize(popoverSize);

    statusItem_ = surroundings_.toolkit.makeStatusItem();
    std::optional<Image> image;
    if (const auto file = surroundings_.platform.bundle.resource("MenuBarIcon", "svg")) {
        image.emplace().file = *file;
    }
    statusItem_->setTemplateImage(image, statusIconPoints);
    statusItem_->setAction([this](StatusEvent event) { togglePopover(event); });
    statusItem_->setMenu([this] { return contextMenu(); });
    popoverShows_ = popover_->onWillShow([this] { statusItem_->setPopoverShown(true); });
    popoverCloses_ = popover_->onDidClose([this] { statusItem_->setPopoverShown(false); });

    wireShortcuts();

    // Also while auto-quit is off: switched on later, it knows when applications were last used.
    autoQuitManager_ = std::make_unique<AutoQuitManager>(AutoQuitSurroundings{
        .settings = settings_,
        .extras = extras_,
        .platform = surroundings_.platform,
        .notifications = surroundings_.notifications,
        .input = surroundings_.input,
        .uses = surroundings_.uses,
        .away = surroundings_.away,
    });
    autoQuitManager_->activityTracker().startTracking();
    autoQuitManager_->start();
}

void AppDelegate::wireShortcuts() {
    // The manager is a member: its callbacks end with this object.
    hotKeyManager_.onActivateMenu = [this] {
        if (statusItem_) {
            togglePopover();
        }
    };
    hotKeyManager_.onQuitAll = [this] { quitAllByShortcut(/*force=*/false); };
    hotKeyManager_.onForceQuitAll = [this] { quitAllByShortcut(/*force=*/true); };
    hotKeyManager_.registerShortcuts();
}

QuitOutcome AppDelegate::quitAll(bool force) {
    AppListViewModel applications(settings_, surroundings_.platform);
    applications.refresh();
    const std::size_t ticked = applications.selectedCount(force);
    if (force && (ticked == 0 || !confirmForceQuitAll(surroundings_.platform.alerts,
                                                      surroundings_.platform.strings, ticked))) {
        return {ticked, 0};
    }
    const Subscription remembering = applications.onQuit([this](const std::vector<AppInfo>& ended) {
        if (extras_.quitsTogether()) {
            reopenList_.remember(ended);
        }
    });
    const std::size_t ended = applications.quitSelected(force);
    // Quitting blocks the main loop: input made meanwhile was aimed at what was on screen then.
    surroundings_.input.discardQueuedInput();
    return {ticked, ended};
}

void AppDelegate::quitAllByShortcut(bool force) {
    if (!extras_.quitsTogether()) {
        quitAll(force);
        return;
    }
    AppListViewModel applications(settings_, surroundings_.platform, &together_);
    applications.refresh();
    const std::size_t ticked = applications.selectedCount(force);
    if (!force || (ticked > 0 && confirmForceQuitAll(surroundings_.platform.alerts,
                                                     surroundings_.platform.strings, ticked))) {
        applications.beginQuitSelected(force);
    }
}

std::vector<AppInfo> AppDelegate::rows() {
    if (!rows_) {
        rows_ = std::make_unique<AppListViewModel>(settings_, surroundings_.platform);
    }
    rows_->refresh();
    rows_->updateResourceUsage();
    std::vector<AppInfo> rows = rows_->filteredApps();
    std::ranges::move(rows_->filteredBackgroundApps(), std::back_inserter(rows));
    return rows;
}

std::unique_ptr<Forecast> AppDelegate::makeForecast() {
    return std::make_unique<Forecast>(settings_, surroundings_.platform,
                                      autoQuitManager_->sparing(), surroundings_.uses);
}

void AppDelegate::togglePopover(StatusEvent event) {
    if (event == StatusEvent::rightMouseUp) {
        showContextMenu();
    } else {
        togglePopover();
    }
}

void AppDelegate::togglePopover() {
    if (popover_ && popover_->isShown()) {
        popover_->performClose();
    } else {
        openPopover();
    }
}

void AppDelegate::openPopover() {
    if (popover_ && statusItem_ && !popover_->isShown()) {
        popover_->show(statusItem_->frame());
    }
}

void AppDelegate::closePopover() {
    if (popover_) {
        popover_->performClose();
    }
}

void AppDelegate::showContextMenu() {
    closePopover();
    if (statusItem_) {
        statusItem_->popUpMenu();
    }
}

std::vector<StatusMenuItem> AppDelegate::contextMenu() {
    std::vector<StatusMenuItem> menu{
        {.title = surroundings_.platform.strings.text("About Calmora"),
         .keyEquivalent = "",
         .isEnabled = true,
         .action = [this] { showAbout(); }},
        {.title = surroundings_.platform.strings.text("Check for Updates…"),
         .keyEquivalent = "",
         .isEnabled = updaterController_->canCheckForUpdates(),
         .action = [this] { updaterController_->checkForUpdates(); }},
        {},
        {.title = surroundings_.platform.strings.text("Quit Calmora"),
         .keyEquivalent = "q",
         .isEnabled = true,
         .action = [this] { quitApp(); }}};
    if (extras_.quitsTogether()) {
        menu.insert(menu.begin(), {reopenItem(), {}});
    }
    return menu;
}

StatusMenuItem AppDelegate::reopenItem() {
    const std::vector<std::string> names = reopenList_.names();
    const auto count = static_cast<std::int64_t>(names.size());
    const auto& strings = surroundings_.platform.strings;
    return {.title =
                names.empty() ? strings.text("Reopen")
                : count == 1
                    ? fillPlaceholders(strings.text("Reopen %@"), {shownName(names.front())})
                    : fillPlaceholders(strings.text("Reopen %lld Applications", count), {count}),
            .keyEquivalent = "",
            .isEnabled = !names.empty(),
            .action = [this] {
                // None of them will have come back by itself.
                together_.forgetEnded();
                reopenList_.reopen();
            }};
}

} // namespace calmora
