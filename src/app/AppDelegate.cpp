#include "app/AppDelegate.h"

#include "app/AppToolkit.h"
#include "autoquit/AutoQuitManager.h"

#include <utility>

namespace calmora {

AppDelegate::AppDelegate(UserDefaults& defaults, std::unique_ptr<Updater> updater,
                         AppToolkit& toolkit, const Bundle& bundle, const LocalizedStrings& strings)
    : settings_(defaults), updaterController_(std::move(updater)), toolkit_(toolkit),
      bundle_(bundle), strings_(strings) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    popover_ = toolkit_.makePopover(settings_);
    popover_->setContentSize(popoverSize);

    statusItem_ = toolkit_.makeStatusItem();
    std::optional<Image> image;
    if (const auto file = bundle_.resource("MenuBarIcon", "svg")) {
        image.emplace().file = *file;
    }
    statusItem_->setTemplateImage(image, statusIconPoints);
    statusItem_->setAction([this](StatusEvent event) { togglePopover(event); });
    statusItem_->setMenu([this] { return contextMenu(); });

    // Also while auto-quit is off: switched on later, it knows since when nothing was used.
    autoQuitManager_ = toolkit_.makeAutoQuitManager(settings_);
    autoQuitManager_->activityTracker().startTracking();
    autoQuitManager_->start();
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
    return {{.title = strings_.text("About Calmora"),
             .keyEquivalent = "",
             .isEnabled = true,
             .action = [this] { showAbout(); }},
            {.title = strings_.text("Check for Updates…"),
             .keyEquivalent = "",
             .isEnabled = updaterController_->canCheckForUpdates(),
             .action = [this] { updaterController_->checkForUpdates(); }},
            {},
            {.title = strings_.text("Quit Calmora"),
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
