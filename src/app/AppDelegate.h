#pragma once

#include "app/HotKeyManager.h"
#include "platform/Geometry.h"
#include "platform/Platform.h"
#include "platform/Popover.h"
#include "platform/StatusItem.h"
#include "platform/Updater.h"
#include "settings/AppSettings.h"

#include <memory>
#include <vector>

namespace calmora {

class AppListViewModel;
class AppToolkit;
class AutoQuitManager;
class InputGate;
class UserDefaults;

/// The program's presence in the status bar: one icon, whose left click opens and closes the
/// popover and whose right click opens the menu; and what the global shortcuts do. Main thread.
class AppDelegate {
  public:
    static constexpr Size popoverSize{360, 500};
    static constexpr int statusIconPoints = 19;

    /// Nothing is on screen yet. The references must outlive the delegate.
    AppDelegate(UserDefaults& defaults, std::unique_ptr<Updater> updater, AppToolkit& toolkit,
                const Platform& platform, KeyboardShortcuts& shortcuts, InputGate& input);
    ~AppDelegate();

    /// Makes the popover and the status item, registers the shortcuts and starts watching for idle
    /// applications. Call once, when the main loop is about to run.
    void applicationDidFinishLaunching();

    /// The action of the status item: the menu after a right click, else the popover opens or
    /// closes.
    void togglePopover(StatusEvent event);

    /// Opens the popover unless it is shown; for a second start of the program.
    void openPopover();

    /// Opens the menu where the program has to do it.
    void showContextMenu();

    /// Shows the About panel.
    void showAbout();

    /// Ends the program.
    void quitApp();

    /// The preferences.
    [[nodiscard]] AppSettings& settings() { return settings_; }

    /// What looks for new versions.
    [[nodiscard]] Updater& updater() { return *updaterController_; }

  private:
    void togglePopover();
    [[nodiscard]] std::vector<StatusMenuItem> contextMenu();
    void wireShortcuts();
    void quitAll();
    void forceQuitAll();
    void quitSelected(AppListViewModel& applications, bool force);

    AppSettings settings_;
    std::unique_ptr<Updater> updaterController_;
    std::unique_ptr<StatusItem> statusItem_;
    std::unique_ptr<Popover> popover_;
    HotKeyManager hotKeyManager_;
    std::unique_ptr<AutoQuitManager> autoQuitManager_;

    AppToolkit& toolkit_;
    Platform platform_;
    InputGate& input_;
};

} // namespace calmora
