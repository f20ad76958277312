// Draws the Shortcuts pane, the recorder's states and its alerts into pictures.
// Usage: calmora_shortcuts_gallery FOLDER [LOCALE]; set QT_SCALE_FACTOR for other resolutions.

#include "shortcuts/ShortcutsPane.h"
#include "widgets/Theme.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QIcon>
#include <QKeyEvent>
#include <QMessageBox>
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
        setAppearance(appearance);
        const QString suffix = appearance == Appearance::light ? "light.png" : "dark.png";
        ShortcutsPane pane({}, {}, locale);
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
                auto* sheet = pane.window.findChild<QMessageBox*>("recorderAlert");
                if (sheet) {
                    save(*sheet, file);
                    sheet->reject();
                }
            });
            press(pane.recorder("forceQuitAll"), key);
            settle();
        }

        ShortcutsPane unavailable("Shortcuts are not available, because there is no X server.");
        unavailable.shortcuts.setShortcut(Shortcut{40, 0x1900},
                                          unavailable.shortcuts.name("activateMenu"));
        unavailable.window.show();
        save(unavailable.window, folder.filePath("unavailable-" + suffix));
    }
    return 0;
}
