// SPDX-License-Identifier: MIT
#include "app/CalmoraApp.h"

#include "app/Diagnosis.h"
#include "app/Identity.h"
#include "app/WindowBackendChoice.h"
#include "autoquit/views/AutoQuitSheet.h"
#include "platform/desktop/hotkeys/DesktopHotKeys.h"
#include "platform/desktop/status/QtStatusItem.h"
#include "platform/gnome/backend/ShellExtension.h"
#include "platform/gnome/backend/ShellStatusItem.h"
#include "platform/linux/xdg/BaseDirectories.h"
#include "platform/qt/popover/QtPopover.h"
#include "platform/x11/XSettings.h"
#include "settings/AboutPanel.h"
#include "settings/SettingsView.h"
#include "settings/SettingsWindow.h"
#include "support/LoadedLibrary.h"
#include "ui/AppListViewModel.h"
#include "ui/MenuPopoverView.h"
#include "updates/FeedSource.h"
#include "updates/FeedUpdater.h"
#include "updates/UpdateWindow.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QApplication>
#include <QCursor>
#include <QDesktopServices>
#include <QIcon>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

namespace calmora {

namespace {

/// Title bars and task switchers scale this size.
constexpr int windowIconSide = 64;
/// Time for the panel to show the icon, and for the session to start most of its programs.
constexpr std::chrono::seconds quietAfterLaunch{2};

/// The popover's content together with the model that it shows.
class ListContent final : public QWidget {
  public:
    ListContent(AppSettings& settings, MenuPopoverSurroundings surroundings)
        : viewModel_(settings, surroundings.platform, surroundings.together),
          view_(settings, viewModel_, std::move(surroundings), this) {
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&view_);
    }

  private:
    AppListViewModel viewModel_;
    MenuPopoverView view_;
};

/// Opens the window in the middle of the screen on which the user is, where programs may place
/// their windows; brings it to the front if it is open.
void showWindow(QWidget& window, const Image& icon) {
    window.setWindowIcon(imagePixmap(icon, windowIconSide, 1));
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (!window.isVisible()) {
        window.adjustSize();
        QRect place = window.rect();
        place.moveCenter((screen ? screen : window.screen())->availableGeometry().center());
        window.move(place.topLeft());
    }
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

CalmoraApp::CalmoraApp(const QDBusConnection& sessionBus, SingleInstance& instance,
                       EndingSignals& signals, const QtEnvironment& environment,
                       Inheritance inheritance)
    : sessionBus_(sessionBus), environment_(environment), shell_(makeShellLink(sessionBus_)),
      backend_(makeWindowBackend(
          events_, sessionBus_, shell_.get(),
          [this]() -> const DesktopEntryIndex& { return machine_.installed.index(); },
          [this](KeyboardLayout& layout) {
              return makeDesktopHotKeys({.sessionBus = sessionBus_,
                                         .layout = layout,
                                         .identifier = identity::identifier,
                                         .name = identity::name,
                                         .mayAct = [this] { return !alertSession_.isOpen(); }});
          },
          [this] { return !alertSession_.isOpen(); })),
      machine_(events_, backend_->windows(), sessionBus_, alertSession_),
      launcher_({.sessionBus = sessionBus_,
                 .installed = machine_.installed,
                 .inheritance = std::move(inheritance),
                 .activationToken = [this] { return backend_->activationToken(); }}),
      defaults_(BaseDirectories::fromEnvironment().configHome / "calmora" / "preferences.json",
                runLoop_),
      extension_(shell_ ? std::make_unique<ShellExtension>(sessionBus_, *shell_, defaults_)
                        : nullptr),
      globalShortcuts_(*backend_, sessionBus_, defaults_, machine_.text, strings_, alertSession_,
                       icon()),
      alerts_(backend_->transientWindows(), alertSession_, icon()),
      eventMonitor_(backend_->transientWindows()), inputGate_(backend_->transientWindows(),
                                                              [this] {
                                                                  eventMonitor_.reread();
                                                                  backend_->discardKeyPresses();
                                                              }),
      notifications_(sessionBus_, identity::identifier),
      loginItem_(BaseDirectories::fromEnvironment(), identity::identifier,
                 QCoreApplication::applicationFilePath().toStdString()),
      delegate_({.defaults = defaults_,
                 .toolkit = *this,
                 .platform = platform(),
                 .launcher = launcher_,
                 .shortcuts = globalShortcuts_.shortcuts(),
                 .notifications = notifications_,
                 .input = inputGate_,
                 .uses = machine_.uses,
                 .away = machine_.away},
                makeUpdater()),
      commands_(delegate_, alertSession_,
                {.openSettings = [this] { openSettings(); },
                 .diagnose =
                     [this](std::span<const ProcessId> processes) {
                         return diagnosis(*backend_, machine_, sessionBus_, processes);
                     },
                 .terminate = [this] { terminate(); }}),
      channel_(sessionBus_, identity::identifier, [this](const QStringList& arguments) {
          const CommandAnswer answer = runCommand(arguments);
          return ChannelAnswer{static_cast<uint>(answer.status),
                               QString::fromStdString(answer.output)};
      }) {
    colorSchemeChanges_ = colorScheme_.onChanged([this] { updateAppearance(); });
    lookChanges_ = backend_->onLookChanged([this] {
        updateAppearance();
        desktopFont_.setPoints(backend_->fontPoints());
    });
    updateAppearance();
    desktopFont_.setPoints(backend_->fontPoints());
    setCompositing([this] { return backend_->transientWindows().isComposited(); });
    activated_ = instance.onActivated([this] { delegate_.openPopover(); });
    acted_ = instance.onAction(
        [this](const QString& action) { static_cast<void>(runCommand({"--" + action})); });
    signals.onSignal([] { QCoreApplication::quit(); });
}

CalmoraApp::~CalmoraApp() {
    setCompositing(nullptr);
    delete aboutPanel_;
    delete settingsWindow_;
}

int CalmoraApp::run(const CommandLine& first) {
    delegate_.applicationDidFinishLaunching();
    if (isForInstance(first.command)) {
        QTimer::singleShot(0, qApp, [this, first] { commands_.run(first); });
    }
    // Preload the application list after the tray icon appears.
    QTimer::singleShot(quietAfterLaunch, qApp,
                       [this] { static_cast<void>(machine_.workspace.runningApplications()); });
    return QApplication::exec();
}

std::unique_ptr<Popover> CalmoraApp::makePopover(AppSettings& settings, ExtraSettings& extras,
                                                 QuitTogether& together) {
    auto popover = std::make_unique<QtPopover>(backend_->transientWindows(), alertSession_);
    auto list = std::make_unique<ListContent>(
        settings,
        MenuPopoverSurroundings{.platform = platform(),
                                .eventMonitor = eventMonitor_,
                                .popover = *popover,
                                .inputGate = inputGate_,
                                .openSettings = [this] { openSettings(); },
                                .limitation = [this] { return backend_->listLimitation(); },
                                .reopenList = &delegate_.reopenList(),
                                .extension = extension_.get(),
                                .extras = &extras,
                                .together = &together});
    popover->setContent(std::move(list));
    return popover;
}

std::unique_ptr<StatusItem> CalmoraApp::makeStatusItem() {
    const auto onMenu = [this](bool isOpen) {
        globalShortcuts_.setPanelMenuOpen(isOpen);
        if (isOpen) {
            delegate_.closePopover();
        }
    };
    auto item = std::make_unique<QtStatusItem>(sessionBus_, identity::identifier, strings_, onMenu);
    if (!shell_) {
        return item;
    }
    return std::make_unique<ShellStatusItem>(*shell_, std::move(item), onMenu);
}

std::unique_ptr<Updater> CalmoraApp::makeUpdater() {
    if (*identity::updateFeed == 0) {
        return std::make_unique<UnavailableUpdater>();
    }
    releases_ = std::make_unique<FeedSource>(identity::updateFeed, ownFile("calmora_fetch"),
                                             releaseLanguages(), runLoop_);
    updateWindow_ = std::make_unique<UpdateWindow>(icon(), [this](const std::string& page) {
        environment_.runWithoutIt([&] {
            QDesktopServices::openUrl(QUrl(QString::fromStdString(page), QUrl::StrictMode));
        });
    });
    return std::make_unique<FeedUpdater>(UpdaterSurroundings{.source = *releases_,
                                                             .presenter = *updateWindow_,
                                                             .notifications = notifications_,
                                                             .defaults = defaults_,
                                                             .runLoop = runLoop_,
                                                             .clock = machine_.clock,
                                                             .strings = strings_,
                                                             .version = identity::version});
}

void CalmoraApp::orderFrontAboutPanel() {
    if (!aboutPanel_) {
        aboutPanel_ = new AboutPanel(strings_, icon(), machine_.bundle.shortVersion());
    }
    showWindow(*aboutPanel_, icon());
}

void CalmoraApp::openSettings() {
    if (!settingsWindow_) {
        auto* window = new SettingsWindow(strings_);
        window->setContent(new SettingsView(
            delegate_.settings(), delegate_.updater(),
            {.platform = platform(),
             .loginItem = loginItem_,
             // What the extension gives is said beside it.
             .limitations = {extension_ ? std::string() : backend_->listLimitation(),
                             backend_->autoQuitLimitation()},
             .autoQuit = {.extras = delegate_.extras(),
                          .openSheet =
                              [this](QWidget& over) {
                                  AutoQuitSheet::openOver(over, delegate_.settings(),
                                                          delegate_.extras(), platform(),
                                                          delegate_.makeForecast());
                              }},
             .recorders = globalShortcuts_.recorders(),
             .icon = icon(),
             .extension = extension_.get()},
            window));
        settingsWindow_ = window;
    }
    showWindow(*settingsWindow_, icon());
}

void CalmoraApp::updateAppearance() {
    AppearanceWish wish{.isThemeDark = namesDarkTheme(backend_->themeName())};
    const ColorScheme scheme = colorScheme_.preference();
    if (scheme != ColorScheme::noPreference) {
        wish.preferred = scheme == ColorScheme::dark ? Appearance::dark : Appearance::light;
    }
    setAppearance(wish);
}

CommandAnswer CalmoraApp::runCommand(const QStringList& arguments) {
    std::vector<std::string> words;
    std::ranges::transform(arguments, std::back_inserter(words), &QString::toStdString);
    const auto line = parseCommandLine(words);
    return line ? commands_.run(*line) : CommandAnswer{.status = CommandStatus::usage};
}

void CalmoraApp::terminate() {
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

Image CalmoraApp::icon() const {
    Image image;
    image.file = machine_.bundle.resource("AppIcon", "svg").value_or(std::filesystem::path());
    return image;
}

Platform CalmoraApp::platform() {
    return {.workspace = machine_.workspace,
            .processes = machine_.processes,
            .clock = machine_.clock,
            .runLoop = runLoop_,
            .bundle = machine_.bundle,
            .text = machine_.text,
            .strings = strings_,
            .sounds = machine_.sounds,
            .alerts = alerts_};
}

} // namespace calmora
