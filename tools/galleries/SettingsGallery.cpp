// SPDX-License-Identifier: MIT
// Draws the General pane and its sheet into pictures for visual checks.
// Usage: calmora_settings_gallery FOLDER; set QT_SCALE_FACTOR for other resolutions.

#include "platform/qt/QtLocalizedStrings.h"
#include "settings/SettingsFixture.h"
#include "widgets/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QIcon>
#include <QScrollArea>
#include <QScrollBar>

#include <cstdio>
#include <functional>
#include <memory>

namespace {

using namespace calmora;

void settle(int milliseconds = 200) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
}

void save(QWidget& widget, const QString& path) {
    settle();
    if (!widget.grab().save(path)) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    }
}

void fill(SettingsFixture& pane) {
    const auto install = [&](const char* identifier, const char* name, const char* icon) {
        pane.machine.workspace.installed[identifier] = {name, Image{icon, {}, {}}, {}};
    };
    install("org.gnome.Calculator", "Calculator", "accessories-calculator");
    install("org.mozilla.firefox", "Firefox", "web-browser");
    ProcessId pid = 10;
    const auto run = [&](const char* identifier, const char* name, const char* icon) {
        FakeApplication app{.pid = ++pid, .name = name, .bundleIdentifier = identifier};
        app.icon = Image{icon, {}, {}};
        pane.machine.workspace.launch(std::move(app));
    };
    run("org.gnome.Calculator", "Calculator", "accessories-calculator");
    run("org.mozilla.firefox", "Firefox", "web-browser");
    run("org.xfce.mousepad", "Mousepad", "accessories-text-editor");
    run("xterm", "XTerm", "no-such-icon");
    run("gimp", "GNU Image Manipulation Program with an Uncommonly Long Name", "image-x-generic");
    for (int more = 0; more < 12; ++more) {
        run("org.example.more", ("Program " + std::to_string(more)).c_str(), "text-x-generic");
    }
}

void protect(SettingsFixture& pane) {
    for (const char* identifier : {"org.gnome.Calculator", "org.mozilla.firefox",
                                   "com.jetbrains.fleet", "org.example.NotInstalled"}) {
        pane.settings.addToNeverQuit(identifier);
    }
}

void render(const QDir& folder, const QString& suffix) {
    SettingsFixture pane;
    fill(pane);
    pane.open();
    save(pane.window, folder.filePath("top" + suffix));
    auto* bar = pane.view->findChild<QScrollArea*>()->verticalScrollBar();
    bar->setValue(bar->maximum());
    save(pane.window, folder.filePath("bottom" + suffix));
    bar->setValue(0);

    protect(pane);
    pane.settings.autoQuitEnabled.set(true);
    pane.settings.viewBackgroundApps.set(true);
    pane.settings.openAtLogin.set(true);
    pane.window.setAttribute(Qt::WA_KeyboardFocusChange);
    pane.window.activateWindow();
    pane.view->findChild<QAbstractButton*>("playSounds")->setFocus();
    pane.window.resize(Points{450}, Points{1320});
    save(pane.window, folder.filePath("all" + suffix));

    pane.view->findChild<QAbstractButton*>("addApp")->click();
    settle();
    auto* sheet = pane.window.findChild<QDialog*>("addAppSheet");
    save(*sheet, folder.filePath("sheet" + suffix));
    sheet->close();
    settle();

    auto* picker = pane.view->findChild<QComboBox*>("autoQuitMinutes");
    picker->showPopup();
    settle();
    save(*picker->findChild<QWidget*>()->window(), folder.filePath("popup" + suffix));
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget != &pane.window) {
            save(*widget, folder.filePath("popup" + suffix));
        }
    }
    picker->hidePopup();
}

/// The sheet about auto-quit with a row of most kinds, and when auto-quit is off.
void renderAutoQuit(const QDir& folder, const QString& suffix) {
    SettingsFixture pane;
    pane.extras.sparesWhatIsInUse.set(true);
    pane.manager.activityTracker().startTracking();
    fill(pane);
    pane.machine.workspace.installed["xterm"].needsTerminal = true;
    pane.settings.addToNeverQuit("org.gnome.Calculator");
    for (const ProcessId process : {12, 13, 15}) {
        pane.machine.workspace.activate(process);
        pane.machine.runLoop.advance(std::chrono::minutes(4));
    }
    pane.uses.report = {{{12, UseKind::playsSound}}, true, std::chrono::minutes(0)};
    pane.open();
    pane.view->findChild<QAbstractButton*>("autoQuitOptions")->click();
    auto* sheet = pane.window.findChild<QDialog*>("autoQuitSheet");
    save(*sheet, folder.filePath("auto-quit-off" + suffix));
    pane.settings.autoQuitEnabled.set(true);
    pane.uses.answer();
    save(*sheet, folder.filePath("auto-quit" + suffix));
    auto* bar = sheet->findChild<QScrollArea*>()->verticalScrollBar();
    bar->setValue(bar->maximum() / 3);
    save(*sheet, folder.filePath("auto-quit-list" + suffix));
    sheet->close();
    pane.extras.resetToDefaults();
    settle();
    auto* paneBar = pane.view->findChild<QScrollArea*>()->verticalScrollBar();
    paneBar->setValue(paneBar->maximum());
    save(pane.window, folder.filePath("offer" + suffix));
}

void renderEmptySheet(const QDir& folder, const QString& suffix) {
    SettingsFixture pane;
    pane.open();
    pane.view->findChild<QAbstractButton*>("addApp")->click();
    settle();
    save(*pane.window.findChild<QDialog*>("addAppSheet"), folder.filePath("no-apps" + suffix));
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: settings gallery FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    folder.mkpath(".");
    QIcon::setThemeSearchPaths({"/usr/share/icons"});
    QIcon::setThemeName("Adwaita");
    installTheme(application);
    const QtLocalizedStrings strings{QLocale(QLocale::English)};
    setAppearance({.preferred = Appearance::light});
    render(folder, "-light.png");
    renderEmptySheet(folder, "-light.png");
    renderAutoQuit(folder, "-light.png");
    setAppearance({.preferred = Appearance::dark});
    render(folder, "-dark.png");
    renderEmptySheet(folder, "-dark.png");
    renderAutoQuit(folder, "-dark.png");

    setAppearance({.preferred = Appearance::light});
    QApplication::setLayoutDirection(Qt::RightToLeft);
    render(folder, "-reversed.png");
    QApplication::setLayoutDirection(Qt::LeftToRight);
    auto translated = std::make_unique<QtLocalizedStrings>(QLocale(QLocale::Japanese));
    render(folder, "-japanese.png");
    translated = std::make_unique<QtLocalizedStrings>(QLocale(QLocale::German));
    render(folder, "-german.png");
    renderAutoQuit(folder, "-german.png");
    QFont font = QApplication::font();
    font.setPointSize(2 * font.pointSize());
    QApplication::setFont(font);
    render(folder, "-german-twice.png");
    renderEmptySheet(folder, "-german-twice.png");
    renderAutoQuit(folder, "-german-twice.png");
    return 0;
}
