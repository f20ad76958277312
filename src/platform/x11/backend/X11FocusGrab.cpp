// SPDX-License-Identifier: MIT
#include "platform/x11/backend/X11FocusGrab.h"

#include "platform/qt/window/FocusMove.h"

#include <QGuiApplication>
#include <QInputEvent>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <cstdint>
#include <utility>

namespace calmora {

namespace {

/// Turning the wheel presses the buttons 4 to 7.
constexpr std::uint32_t firstWheelButton = 4;
constexpr std::uint32_t lastWheelButton = 7;
/// Avoids a raise loop with another always-on-top window.
constexpr std::chrono::milliseconds coverDelay{50};
/// Time for a window manager to remove the frame of a window that vanished.
constexpr std::chrono::milliseconds frameDelay{60};
/// Time for a window manager to give the focus to another window.
constexpr std::chrono::milliseconds settlingTime{500};

void selectFocus(const X11Input& input, xcb_window_t window, bool isWatching) {
    const std::uint32_t mask = isWatching ? XCB_EVENT_MASK_FOCUS_CHANGE : XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(input.connection(), window, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(input.connection());
}

} // namespace

bool X11FocusGrab::isOwnPress(xcb_timestamp_t time) const {
    // Time stamps wrap around after 49 days.
    return ownPress_ && static_cast<std::int32_t>(time - *ownPress_) <= 0;
}

bool X11FocusGrab::eventFilter(QObject* watched, QEvent* event) {
    if (watched->isWindowType() && (event->type() == QEvent::MouseButtonPress ||
                                    event->type() == QEvent::MouseButtonDblClick)) {
        ownPress_ = static_cast<xcb_timestamp_t>(static_cast<QInputEvent*>(event)->timestamp());
        if (static_cast<const QWindow*>(watched)->winId() == window_ && !isAlertOpen_()) {
            takeBack();
        }
    }
    return false;
}

X11FocusGrab::X11FocusGrab(X11Input& input, xcb_window_t window, std::function<bool()> isAlertOpen,
                           std::function<void(Leaving)> onLeft)
    : input_(input), window_(window), isAlertOpen_(std::move(isAlertOpen)),
      onLeft_(std::move(onLeft)), former_(input.focusedWindow()), screen_(input.watchScreen()) {
    events_ = input_.onEvent([this](const xcb_generic_event_t& event) { handle(event); });
    qGuiApp->installEventFilter(this);
    selectFocus(input_, window_, true);
    renew();
}

X11FocusGrab::~X11FocusGrab() {
    selectFocus(input_, window_, false);
    input_.passFocus(window_, former_, leftAt_);
}

void X11FocusGrab::renew() {
    leftAt_ = XCB_CURRENT_TIME;
    input_.grabFocus(window_);
}

void X11FocusGrab::takeBack() {
    const xcb_window_t owner = input_.focusedWindow();
    if (owner == window_) {
        return;
    }
    // A question of another program waits for its answer.
    if (appeared_.contains(input_.topLevel(owner)) && !input_.isOurs(former_)) {
        former_ = owner;
    }
    renew();
}

void X11FocusGrab::look(bool isSettled) {
    isCheckDue_ = false;
    const xcb_window_t owner = input_.focusedWindow();
    // Windows that appeared before it got the focus are in the queue by now.
    input_.dispatchQueued();
    FocusMove move{.isStillHere = owner == window_, .isAlertOpen = isAlertOpen_()};
    if (!move.isStillHere && !move.isAlertOpen) {
        move.isOwnerOurs = input_.isOurs(owner);
        move.isOwnerNew = appeared_.contains(input_.topLevel(owner));
        move.formerOwnerExists = input_.isViewable(former_);
        move.windowVanished = !settling_.hasExpired();
        move.userActed = userActed_;
        move.isSettled = isSettled;
    }
    switch (judge(move)) {
    case FocusVerdict::stay:
        break;
    case FocusVerdict::takeBack:
        former_ = owner;
        renew();
        break;
    case FocusVerdict::waitAndSee:
        isCheckDue_ = true;
        QTimer::singleShot(frameDelay, this, [this] { look(true); });
        break;
    case FocusVerdict::close:
        leave(Leaving::turnedAway);
        break;
    }
}

void X11FocusGrab::handle(const xcb_generic_event_t& event) {
    if (const auto press = input_.rawPress(event)) {
        if ((press->button < firstWheelButton || press->button > lastWheelButton) &&
            !isAlertOpen_() && !isOwnPress(press->time) &&
            !input_.isOurs(input_.topLevelUnderPointer())) {
            leftAt_ = press->time;
            leave(Leaving::pressedOutside);
        }
        return;
    }
    switch (eventType(event)) {
    case XCB_FOCUS_OUT: {
        const auto& out = eventAs<xcb_focus_out_event_t>(event);
        if (out.event == window_) {
            userActed_ = userActed_ || out.mode == XCB_NOTIFY_MODE_GRAB;
            if (!std::exchange(isCheckDue_, true)) {
                QTimer::singleShot(0, this, [this] { check(); });
            }
        }
        break;
    }
    case XCB_CONFIGURE_NOTIFY:
        if (!input_.isOurs(eventAs<xcb_configure_notify_event_t>(event).window) &&
            !std::exchange(isCoverDue_, true)) {
            QTimer::singleShot(coverDelay, this, [this] {
                isCoverDue_ = false;
                leave(Leaving::covered);
            });
        }
        break;
    case XCB_MAP_NOTIFY:
        appeared_.insert(eventAs<xcb_map_notify_event_t>(event).window);
        if (userActed_) {
            ofUserAct_.insert(eventAs<xcb_map_notify_event_t>(event).window);
        }
        break;
    case XCB_UNMAP_NOTIFY:
    case XCB_DESTROY_NOTIFY: {
        // Both events name the window in the same place.
        const xcb_window_t window = eventAs<xcb_unmap_notify_event_t>(event).window;
        appeared_.erase(window);
        if (!input_.isOurs(window) && !ofUserAct_.contains(window)) {
            userActed_ = false;
            settling_.setRemainingTime(settlingTime);
        }
        break;
    }
    default:
        break;
    }
}

void X11FocusGrab::leave(Leaving how) {
    // The handler may destroy this object.
    if (const auto onLeft = onLeft_) {
        onLeft(how);
    }
}

} // namespace calmora
