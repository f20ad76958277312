#include "platform/desktop/status/StatusMenu.h"

#include "support/ShownName.h"

#include <QAction>
#include <QKeyEvent>
#include <QKeySequence>

#include <array>

namespace calmora {
namespace {

/// Keys that stand for Command; the first is shown.
constexpr std::array commands{Qt::ControlModifier, Qt::MetaModifier};

/// Keys that would close a menu although they only begin a combination.
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
        QAction* action =
            addAction(QString::fromStdString(shownName(item.title)).replace('&', "&&"));
        action->setEnabled(item.isEnabled);
        if (!item.keyEquivalent.empty()) {
            const QKeySequence key(QString::fromStdString(item.keyEquivalent).toUpper());
            QList<QKeySequence> shortcuts;
            for (const Qt::KeyboardModifier command : commands) {
                shortcuts += QKeySequence(QKeyCombination(command, key[0].key()));
            }
            action->setShortcuts(shortcuts);
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
    const QKeySequence pressed(event->keyCombination());
    for (QAction* action : actions()) {
        if (action->isEnabled() && action->shortcuts().contains(pressed)) {
            hide();
            action->trigger();
            return;
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
