// SPDX-License-Identifier: MIT
#pragma once

#include "app/AppDelegate.h"
#include "app/AppToolkit.h"
#include "app/GlobalShortcuts.h"
#include "app/InstanceCommands.h"
#include "app/LinuxMachine.h"
#include "app/QtEnvironment.h"
#include "platform/DesktopExtension.h"
#include "platform/desktop/DesktopColorScheme.h"
#include "platform/desktop/DesktopNotifications.h"
#include "platform/desktop/launch/DesktopLauncher.h"
#include "platform/desktop/single_instance/CommandChannel.h"
#include "platform/desktop/single_instance/SingleInstance.h"
#include "platform/gnome/backend/ShellLink.h"
#include "platform/linux/EventPoll.h"
#include "platform/linux/xdg/AutostartLoginItem.h"
#include "platform/linux/xdg/JsonUserDefaults.h"
#include "platform/qt/AlertSession.h"
#include "platform/qt/QtLocalizedStrings.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/WindowBackend.h"
#include "platform/qt/alerts/QtAlerts.h"
#include "platform/qt/input/QtEventMonitor.h"
#include "platform/qt/input/QtInputGate.h"
#include "updates/Release.h"
#include "updates/UpdatePresenter.h"
#include "widgets/Theme.h"

#include <QPointer>

#include <memory>

class QWidget;

namespace calmora {

/// Composition root: owns the platform and the delegate in the order of lifetimes, and makes what
/// the delegate needs of the toolkit. Needs the QApplication.
class CalmoraApp final : private AppToolkit {
  public:
    /// `instance` is the first of the session; `inheritance` is for the programs that this one
    /// starts. The references must outlive this object.
    CalmoraApp(const QDBusConnection& sessionBus, SingleInstance& instance, EndingSignals& signals,
               const QtEnvironment& environment, Inheritance inheritance);

    ~CalmoraApp() override;

    /// Shows the status item and runs the main loop, carrying out `first` as soon as it runs.
    /// Returns the exit status.
    int run(const CommandLine& first);

  private:
    std::unique_ptr<Popover> makePopover(AppSettings& settings, ExtraSettings& extras,
                                         QuitTogether& together) override;
    std::unique_ptr<StatusItem> makeStatusItem() override;
    [[nodiscard]] std::unique_ptr<Updater> makeUpdater();
    void orderFrontAboutPanel() override;
    void terminate() override;
    void openSettings();
    /// Turns light or dark as the desktop says now.
    void updateAppearance();
    [[nodiscard]] CommandAnswer runCommand(const QStringList& arguments);
    [[nodiscard]] Image icon() const;
    [[nodiscard]] Platform platform();

    QDBusConnection sessionBus_;
    const QtEnvironment& environment_;
    AlertSession alertSession_;
    QtRunLoop runLoop_{alertSession_};
    QtLocalizedStrings strings_;
    EventPoll events_;
    /// Null outside of GNOME.
    std::unique_ptr<ShellLink> shell_;
    std::unique_ptr<WindowBackend> backend_;
    LinuxMachine machine_;
    DesktopLauncher launcher_;
    JsonUserDefaults defaults_;
    /// Null outside of GNOME.
    std::unique_ptr<DesktopExtension> extension_;
    GlobalShortcuts globalShortcuts_;
    QtAlerts alerts_;
    QtEventMonitor eventMonitor_;
    QtInputGate inputGate_;
    DesktopColorScheme colorScheme_{sessionBus_};
    DesktopNotifications notifications_;
    AutostartLoginItem loginItem_;

    /// Null, like the window, if updates come with the system's packages.
    std::unique_ptr<ReleaseSource> releases_;
    std::unique_ptr<UpdatePresenter> updateWindow_;

    QPointer<QWidget> aboutPanel_;
    QPointer<QWidget> settingsWindow_;
    AppDelegate delegate_;
    InstanceCommands commands_;
    CommandChannel channel_;
    Subscription colorSchemeChanges_;
    DesktopFont desktopFont_;
    Subscription lookChanges_;
    Subscription activated_;
    Subscription acted_;
};

} // namespace calmora
