// SPDX-License-Identifier: MIT
#include "platform/qt/input/RunLoopLocalEventMonitor.h"

#include "platform/NotificationCenter.h"
#include "platform/qt/input/QtEventMonitor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

bool isPopup(const QObject* object) {
    return object->isWidgetType() && static_cast<const QWidget*>(object)->windowType() == Qt::Popup;
}

bool closesMenus(int key) {
    return key == Qt::Key_Alt || key == Qt::Key_Meta || key == Qt::Key_Super_L ||
           key == Qt::Key_Super_R;
}

} // namespace

RunLoopLocalEventMonitor::RunLoopLocalEventMonitor(NotificationCenter& notifications,
                                                   IsHotKey isHotKey)
    : notifications_(notifications), isHotKey_(std::move(isHotKey)) {
    qApp->installEventFilter(this);
}

void RunLoopLocalEventMonitor::setPanelMenuOpen(bool isOpen) {
    isPanelMenuOpen_ = isOpen;
    update();
}

bool RunLoopLocalEventMonitor::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
        if (isPopup(watched) && !event->spontaneous()) {
            openPopups_ = std::max(0, openPopups_ + (event->type() == QEvent::Show ? 1 : -1));
            update();
        }
        return false;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride: {
        if (openPopups_ == 0) {
            return false;
        }
        const auto& key = static_cast<const QKeyEvent&>(*event);
        return closesMenus(key.key()) ||
               isHotKey_(key.nativeScanCode(), modifierFlags(key.modifiers()));
    }
    default:
        return false;
    }
}

void RunLoopLocalEventMonitor::update() {
    const bool isOpen = openPopups_ > 0 || isPanelMenuOpen_;
    if (std::exchange(isTracking_, isOpen) != isOpen) {
        notifications_.post(
            {isOpen ? MenuNotification::didBeginTracking : MenuNotification::didEndTracking, {}});
    }
}

} // namespace calmora
