#include "platform/qt/status/StatusMenu.h"

#include <QAction>
#include <QKeyEvent>
#include <QKeySequence>

namespace calmora {
namespace {

/// Command, on this system.
constexpr Qt::KeyboardModifier command = Qt::MetaModifier;

/// Keys with which a menu would close although they only begin a combination.
bool beginsCombination(const QKeyEvent& event) {
    return event.key() == Qt::Key_Alt || event.key() == Qt::Key_Meta ||
           event.key() == Qt::Key_Super_L || event.key() == Qt::Key_Super_R;
}

} // namespace

StatusMenu::StatusMenu(const std::vector<StatusMenuItem>& items) {
    setObjectName("statusMenu");
    for (const StatusMenuItem& item : items) {
        if (item.title.empty()) {
            addSeparator();
            continue;
        }
        QAction* action = addAction(QString::fromStdString(item.title).replace('&', "&&"));
        action->setEnabled(item.isEnabled);
        if (!item.keyEquivalent.empty()) {
            const QString key = QString::fromStdString(item.keyEquivalent).toUpper();
            action->setShortcut(QKeySequence("Meta+" + key));
            action->setShortcutVisibleInContextMenu(true);
        }
        if (item.action) {
            connect(action, &QAction::triggered, action, item.action);
        }
    }
}

void StatusMenu::keyPressEvent(QKeyEvent* event) {
    if (beginsCombination(*event)) {
        event->accept();
        return;
    }
    if (event->modifiers().testFlag(command)) {
        const QKeySequence pressed(event->keyCombination());
        for (QAction* action : actions()) {
            if (action->isEnabled() && action->shortcut() == pressed) {
                hide();
                action->trigger();
                return;
            }
        }
    }
    QMenu::keyPressEvent(event);
}

void StatusMenu::keyReleaseEvent(QKeyEvent* event) {
    if (beginsCombination(*event)) {
        event->accept();
        return;
    }
    QMenu::keyReleaseEvent(event);
}

} // namespace calmora
