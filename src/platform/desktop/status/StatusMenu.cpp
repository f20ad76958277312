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

} // namespace calmora
