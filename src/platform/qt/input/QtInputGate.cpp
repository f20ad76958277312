// SPDX-License-Identifier: MIT
#include "platform/qt/input/QtInputGate.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QTimer>

#include <utility>

namespace calmora {

namespace {

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return true;
    default:
        return false;
    }
}

/// Time stamps wrap around after 49 days.
bool isNotAfter(std::uint32_t time, std::uint32_t limit) {
    return static_cast<std::int32_t>(time - limit) <= 0;
}

} // namespace

QtInputGate::QtInputGate(TransientWindows& windows, std::function<void()> onDiscard)
    : windows_(windows), onDiscard_(std::move(onDiscard)) {}

void QtInputGate::discardQueuedInput() {
    until_ = windows_.eventTime();
    pressesDiscarded_ = {};
    setShut(true);
    if (!until_) {
        // What is waiting arrives within one turn of the loop.
        QTimer::singleShot(0, this,
                           [this] { QTimer::singleShot(0, this, [this] { setShut(false); }); });
    }
    if (onDiscard_) {
        onDiscard_();
    }
}

void QtInputGate::setShut(bool isShut) {
    qGuiApp->removeEventFilter(this);
    if (isShut) {
        qGuiApp->installEventFilter(this);
    }
}

bool QtInputGate::discards(const QEvent& event) {
    const bool isOld =
        !until_ ||
        isNotAfter(static_cast<std::uint32_t>(static_cast<const QInputEvent&>(event).timestamp()),
                   *until_);
    const bool isPress =
        event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
    bool isDiscarded = isOld;
    if (isPress || event.type() == QEvent::MouseButtonRelease) {
        const Qt::MouseButton button = static_cast<const QMouseEvent&>(event).button();
        const bool lostItsPress = !isPress && pressesDiscarded_.testFlag(button);
        isDiscarded = isOld || lostItsPress;
        pressesDiscarded_.setFlag(button, isPress && isOld);
    }
    if (!isOld && !pressesDiscarded_) {
        setShut(false);
    }
    return isDiscarded;
}

bool QtInputGate::eventFilter(QObject* watched, QEvent* event) {
    return watched->isWindowType() && isInput(event->type()) && discards(*event);
}

} // namespace calmora
