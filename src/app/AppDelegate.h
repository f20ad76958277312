// SPDX-License-Identifier: MIT
#pragma once

#include "app/AppToolkit.h"
#include "app/HotKeyManager.h"
#include "model/AppInfo.h"
#include "model/QuitTogether.h"
#include "model/ReopenList.h"
#include "platform/Geometry.h"
#include "platform/Platform.h"
#include "platform/Popover.h"
#include "platform/StatusItem.h"
#include "platform/Updater.h"
#include "settings/AppSettings.h"
#include "settings/ExtraSettings.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace calmora {

class AppListViewModel;
class AutoQuitManager;
class AwayTime;
class Forecast;
class InputGate;
class Launcher;
class UserDefaults;
class UserNotifications;
class UseSources;

/// What quitting the ticked applications came to.
struct QuitOutcome {
    std::size_t ticked = 0;
    /// How many of them ended. None if the user refused.
    std::size_t ended = 0;
};

/// What the delegate depends on. The references must outlive it.
struct AppSurroundings {
    UserDefaults& defaults;
    AppToolkit& toolkit;
    Platform platform;
    Launcher& launcher;
    KeyboardShortcuts& shortcuts;
    UserNotifications& notifications;
    InputGate& input;
    UseSources& uses;
    AwayTime& away;
};

/// The status item and what the global shortcuts do: a left click opens and closes the popover, a
/// right click opens the menu. Main thread.
class AppDelegate {
  public:
    static constexpr Size popoverSize{360, 500};
    static constexpr int statusIconPoints = 19;

    /// Shows nothing yet.
    AppDelegate(const AppSurroundings& surroundings, std::unique_ptr<Updater> updater);
    ~AppDelegate();

    /// Makes the popover and the status item, registers the shortcuts and starts auto-quit. Call
    /// once, when the main loop is about to run.
    void applicationDidFinishLaunching();

    /// The action of the status item: a right click opens the menu, any other toggles the popover.
    void togglePopover(StatusEvent event);

    /// Opens the popover, or closes it.
    void togglePopover();

    /// Opens the popover unless it is shown.
    void openPopover();

    /// Closes the popover if it is shown.
    void closePopover();

    /// Quits what a fresh list has ticked, and asks before force. Blocks until answered, and while
    /// the applications may end.
    QuitOutcome quitAll(bool force);

    /// The same as a global shortcut does it: where the preferences say so, it does not wait until
    /// the applications end.
    void quitAllByShortcut(bool force);

    /// The rows of the popover, from top to bottom. CPU use is that since the last call.
    [[nodiscard]] std::vector<AppInfo> rows();

    /// Opens the menu where the status bar does not do it by itself; the popover closes first.
    void showContextMenu();

    /// Shows the About panel.
    void showAbout() { surroundings_.toolkit.orderFrontAboutPanel(); }

    /// Ends the program.
    void quitApp() { surroundings_.toolkit.terminate(); }

    /// The preferences.
    [[nodiscard]] AppSettings& settings() { return settings_; }

    /// The preferences of what is off at first.
    [[nodiscard]] ExtraSettings& extras() { return extras_; }

    /// What the user's last quit ended. Stays empty while extras().quitsTogether is off.
    [[nodiscard]] ReopenList& reopenList() { return reopenList_; }

    /// What auto-quit will do. Valid after the launch; it must not outlive the delegate.
    [[nodiscard]] std::unique_ptr<Forecast> makeForecast();

    /// The updater.
    [[nodiscard]] Updater& updater() { return *updaterController_; }

  private:
    [[nodiscard]] std::vector<StatusMenuItem> contextMenu();
    [[nodiscard]] StatusMenuItem reopenItem();
    void wireShortcuts();

    AppSurroundings surroundings_;
    AppSettings settings_;
    ExtraSettings extras_;
    ReopenList reopenList_;
    std::unique_ptr<Updater> updaterController_;
    QuitTogether together_;
    std::unique_ptr<StatusItem> statusItem_;
    std::unique_ptr<Popover> popover_;
    Subscription quitProceeds_;
    Subscription quitFinishes_;
    Subscription quittingTogetherChanges_;
    Subscription popoverShows_;
    Subscription popoverCloses_;
    HotKeyManager hotKeyManager_;
    std::unique_ptr<AutoQuitManager> autoQuitManager_;

    /// Null until rows() is asked.
    std::unique_ptr<AppListViewModel> rows_;
};

} // namespace calmora
