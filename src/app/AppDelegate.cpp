#include "app/AppDelegate.h"

#include "app/AppToolkit.h"
#include "autoquit/AutoQuitManager.h"
#include "platform/Bundle.h"
#include "platform/InputGate.h"
#include "platform/LocalizedStrings.h"
#include "ui/AppListViewModel.h"
#include "ui/ForceQuitConfirmation.h"

#include <cstddef>
#include <optional>
#include <utility>

namespace calmora {

AppDelegate::AppDelegate(UserDefaults& defaults, std::unique_ptr<Updater> updater,
                         AppToolkit& toolkit, const Platform& platform,
                         KeyboardShortcuts& shortcuts, UserNotifications& notifications,
                         InputGate& input)
    : settings_(defaults), updaterController_(std::move(updater)), hotKeyManager_(shortcuts),
      toolkit_(toolkit), platform_(platform), notifications_(notifications), input_(input) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    popover_ = toolkit_.makePopover(settings_);
    popover_->setContentSize(popoverSize);

    statusItem_ = toolkit_.makeStatusItem();
    std::optional<Image> image;
    if (const auto file = platform_.bundle.resource("MenuBarIcon", "svg")) {
        image.emplace().file = *file;
    }
    statusItem_->setTemplateImage(image, statusIconPoints);
    statusItem_->setAction([this](StatusEvent event) { togglePopover(event); });
    statusItem_->setMenu([this] { return contextMenu(); });

    wireShortcuts();

    // Also while auto-quit is off: switched on later, it knows when applications were last used.
    autoQuitManager_ =
        std::make_unique<AutoQuitManager>(settings_, platform_, notifications_, input_);
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
    hotKeyManager_.onQuitAll = [this] { quitAll(); };
    hotKeyManager_.onForceQuitAll = [this] { forceQuitAll(); };
    hotKeyManager_.registerShortcuts();
}

void AppDelegate::quitAll() {
    AppListViewModel applications(settings_, platform_);
    applications.refresh();
    quitSelected(applications, /*force=*/false);
}

void AppDelegate::forceQuitAll() {
    AppListViewModel applications(settings_, platform_);
    applications.refresh();
    const std::size_t count = applications.selectedCount();
    if (count > 0 && confirmForceQuitAll(platform_.alerts, platform_.strings, count)) {
        quitSelected(applications, /*force=*/true);
    }
}

/// Quitting blocks the main loop: input made meanwhile was aimed at what was on screen then.
void AppDelegate::quitSelected(AppListViewModel& applications, bool force) {
    applications.quitSelected(force);
    input_.discardQueuedInput();
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

void AppDelegate::showContextMenu() {
    if (statusItem_) {
        statusItem_->popUpMenu();
    }
}

std::vector<StatusMenuItem> AppDelegate::contextMenu() {
    return {{.title = platform_.strings.text("About Calmora"),
             .keyEquivalent = "",
             .isEnabled = true,
             .action = [this] { showAbout(); }},
            {.title = platform_.strings.text("Check for Updates…"),
             .keyEquivalent = "",
             .isEnabled = updaterController_->canCheckForUpdates(),
             .action = [this] { updaterController_->checkForUpdates(); }},
            {},
            {.title = platform_.strings.text("Quit Calmora"),
             .keyEquivalent = "q",
             .isEnabled = true,
             .action = [this] { quitApp(); }}};
}

void AppDelegate::showAbout() {
    toolkit_.orderFrontAboutPanel();
}

void AppDelegate::quitApp() {
    toolkit_.terminate();
}

} // namespace calmora
