#include "settings/WindowKeys.h"

#include "settings/ProgramMenu.h"

#include <QCoreApplication>
#include <QKeySequence>
#include <QShortcut>
#include <QWidget>

#include <functional>
#include <string>

namespace calmora {
namespace {

QKeySequence keySequence(const MenuKey& key) {
    const bool isCommand = key.modifierMask.contains(ModifierFlags::command);
    return QKeySequence((isCommand ? "Meta+" : "Ctrl+") + QString::fromStdString(key.keyEquivalent),
                        QKeySequence::PortableText);
}

/// The action of a menu letter on a window; empty if the window has none.
std::function<void()> action(QWidget& window, const std::string& letter) {
    if (letter == "q") {
        return [] { QCoreApplication::quit(); };
    }
    if (letter == "w") {
        return [&window] { window.close(); };
    }
    if (letter == "m" && window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint)) {
        return [&window] { window.showMinimized(); };
    }
    return {};
}

void answer(QWidget& window, const MainMenu& menu) {
    for (const MainMenuItem& item : menu) {
        answer(window, item.submenu);
        for (const MenuKey& key : item.keys) {
            if (const auto act = action(window, key.keyEquivalent)) {
                auto* shortcut = new QShortcut(keySequence(key), &window);
                QObject::connect(shortcut, &QShortcut::activated, &window, act);
            }
        }
    }
}

} // namespace

void answerMenuKeys(QWidget& window, const LocalizedStrings& strings) {
    answer(window, programMenu(strings));
    QObject::connect(new QShortcut(Qt::Key_Escape, &window), &QShortcut::activated, &window,
                     &QWidget::close);
}

} // namespace calmora
