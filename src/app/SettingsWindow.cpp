#include "app/SettingsWindow.h"

#include "app/ProgramMenu.h"
#include "platform/LocalizedStrings.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QShortcut>
#include <QVBoxLayout>

#include <functional>

namespace calmora {
namespace {

QKeySequence keySequence(const MenuKey& key) {
    const bool isCommand = key.modifierMask.contains(ModifierFlags::command);
    return QKeySequence((isCommand ? "Meta+" : "Ctrl+") + QString::fromStdString(key.keyEquivalent),
                        QKeySequence::PortableText);
}

} // namespace

SettingsWindow::SettingsWindow(const LocalizedStrings& strings)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName("settingsWindow");
    setWindowTitle(QString::fromStdString(strings.text("Calmora Settings")));
    for (const MainMenuItem& menu : programMenu(strings)) {
        answer(menu);
    }
}

void SettingsWindow::setContent(QWidget* content) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(content);
}

void SettingsWindow::answer(const MainMenuItem& item) {
    for (const MainMenuItem& below : item.submenu) {
        answer(below);
    }
    for (const MenuKey& key : item.keys) {
        std::function<void()> act;
        if (key.keyEquivalent == "q") {
            act = [] { QCoreApplication::quit(); };
        } else if (key.keyEquivalent == "w") {
            act = [this] { close(); };
        } else if (key.keyEquivalent == "m") {
            act = [this] { showMinimized(); };
        } else {
            continue; // Text fields answer to the editing keys.
        }
        connect(new QShortcut(keySequence(key), this), &QShortcut::activated, this, act);
    }
}

void SettingsWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace calmora
