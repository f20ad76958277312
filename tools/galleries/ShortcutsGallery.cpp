// SPDX-License-Identifier: MIT
// Draws the Shortcuts pane, the recorder's states and its alerts into pictures.
// Usage: calmora_shortcuts_gallery FOLDER [LOCALE]; set QT_SCALE_FACTOR for other resolutions.

#include "shortcuts/ShortcutsPane.h"
#include "widgets/Theme.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QIcon>
#include <QKeyEvent>
#include <QTimer>

#include <cstdio>

namespace {

using namespace calmora;

void settle() {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 150) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
}

void save(QWidget& widget, const QString& path) {
    settle();
    if (!widget.grab().save(path)) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    }
}

void press(RecorderCocoa& recorder, int virtualKey) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_unknown, Qt::ControlModifier,
                    1000U + static_cast<unsigned>(virtualKey), 0, 0);
    QApplication::sendEvent(&recorder, &event);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    installTheme(application);
    const QDir folder(argc > 1 ? argv[1] : ".");
    folder.mkpath(".");
    const QLocale locale(argc > 2 ? argv[2] : "C");
    for (const Appearance appearance : {Appearance::light, Appearance::dark}) {
        setAppearance({.preferred = appearance});
        const QString suffix = appearance == Appearance::light ? "light.png" : "dark.png";
        ShortcutsPane pane(locale);
        pane.layout.characters[2] = "d";
        pane.shortcuts.setShortcut(Shortcut{40, 0x1900}, pane.shortcuts.name("activateMenu"));
        pane.shortcuts.setShortcut(Shortcut{2, 0x1b00}, pane.shortcuts.name("forceQuitAll"));
        pane.window.setWindowIcon(QIcon(SOURCE_FOLDER "/resources/icons/AppIcon.svg"));
        pane.window.show();
        save(pane.window, folder.filePath("shortcuts-" + suffix));
        auto* clear = pane.recorder("activateMenu").findChild<QWidget*>("cancelButton");
        clear->setAttribute(Qt::WA_UnderMouse);
        save(pane.window, folder.filePath("clear-hovered-" + suffix));
        clear->setAttribute(Qt::WA_UnderMouse, false);
        pane.recorder("quitAll").setFocus();
        save(pane.window, folder.filePath("recording-empty-" + suffix));
        pane.recorder("forceQuitAll").setFocus();
        save(pane.window, folder.filePath("recording-set-" + suffix));

        pane.desktop.entries = {{true, 40, CarbonModifiers::control}};
        for (const auto& [key, name] : {std::pair{12, "menu-alert-"}, {40, "system-alert-"}}) {
            QTimer::singleShot(0, qApp, [&, file = folder.filePath(name + suffix)] {
                auto* sheet = pane.window.findChild<QDialog*>("recorderAlert");
                if (sheet) {
                    save(*sheet, file);
                    sheet->reject();
                }
            });
            press(pane.recorder("forceQuitAll"), key);
            settle();
        }

        ShortcutsPane sway(locale,
                           "Record a shortcut, copy its line into the configuration of sway, and "
                           "reload that.");
        sway.shortcuts.setShortcut(Shortcut{40, 0x1900}, sway.shortcuts.name("activateMenu"));
        sway.shortcuts.setShortcut(Shortcut{12, 0x1b00}, sway.shortcuts.name("forceQuitAll"));
        sway.hotKeys.hints = {
            {"activateMenu",
             {HotKeyHint::Kind::toCopy, "bindsym Mod4+Mod1+Ctrl+k exec calmora --toggle"}},
            {"forceQuitAll",
             {HotKeyHint::Kind::toCopy,
              "bindsym Mod4+Mod1+Ctrl+Shift+q exec calmora --force-quit-all"}}};
        sway.hotKeys.hintsChanged.emit();
        sway.window.show();
        save(sway.window, folder.filePath("sway-" + suffix));

        ShortcutsPane portal(locale,
                             "The desktop assigns the keys; what is recorded here is a proposal.");
        portal.shortcuts.setShortcut(Shortcut{40, 0x1900}, portal.shortcuts.name("activateMenu"));
        portal.shortcuts.setShortcut(Shortcut{12, 0x1b00}, portal.shortcuts.name("quitAll"));
        portal.hotKeys.hints = {{"activateMenu", {HotKeyHint::Kind::assigned, "Super+Alt+K"}},
                                {"quitAll", {HotKeyHint::Kind::unassigned, {}}}};
        portal.hotKeys.hintsChanged.emit();
        portal.window.show();
        save(portal.window, folder.filePath("portal-" + suffix));

        ShortcutsPane commands(locale,
                               "This desktop does not let programs choose shortcuts. Bind these "
                               "commands to keys in its settings or its configuration.");
        commands.hotKeys.hints = {
            {"activateMenu", {HotKeyHint::Kind::toCopy, "calmora --toggle"}},
            {"quitAll", {HotKeyHint::Kind::toCopy, "calmora --quit-all"}},
            {"forceQuitAll", {HotKeyHint::Kind::toCopy, "calmora --force-quit-all"}}};
        commands.hotKeys.hintsChanged.emit();
        commands.window.show();
        save(commands.window, folder.filePath("commands-" + suffix));
    }
    return 0;
}
