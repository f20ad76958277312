#include "platform/x11/backend/X11KeyboardLoan.h"

#include "platform/qt/window/FocusMove.h"

#include <QGuiApplication>
#include <QInputEvent>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <utility>

namespace calmora {

namespace {

constexpr std::uint8_t generatedEvent = 0x80;
/// Turning the wheel presses the buttons 4 to 7.
constexpr std::uint32_t firstWheelButton = 4;
constexpr std::uint32_t lastWheelButton = 7;
/// Two programs that both want to be on top must not fight without pause.
constexpr std::chrono::milliseconds coverDelay{50};
/// How long a window manager may take to take down the frame of a window that vanished.
constexpr std::chrono::milliseconds frameDelay{60};
/// How long a window manager may take to give the keyboard to another window.
constexpr std::chrono::milliseconds settling{500};

template <typename Event>
const Event& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

void selectFocus(const X11Input& input, xcb_window_t window, bool isWatching) {
    const std::uint32_t mask = isWatching ? XCB_EVENT_MASK_FOCUS_CHANGE : XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(input.connection(), window, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(input.connection());
}

} // namespace

X11KeyboardLoan::OwnPresses::OwnPresses() {
    qGuiApp->installEventFilter(this);
}

bool X11KeyboardLoan::OwnPresses::covers(xcb_timestamp_t time) const {
    // Time stamps wrap around after 49 days.
    return latest_ && static_cast<std::int32_t>(time - *latest_) <= 0;
}

bool X11KeyboardLoan::OwnPresses::eventFilter(QObject* watched, QEvent* event) {
    if (watched->isWindowType() && (event->type() == QEvent::MouseButtonPress ||
                                    event->type() == QEvent::MouseButtonDblClick)) {
        latest_ = static_cast<xcb_timestamp_t>(static_cast<QInputEvent*>(event)->timestamp());
    }
    return false;
}

X11KeyboardLoan::X11KeyboardLoan(X11Input& input, xcb_window_t borrower,
                                 std::function<bool()> isAlertOpen,
                                 std::function<void(Leaving)> onLeft)
    : input_(input), borrower_(borrower), isAlertOpen_(std::move(isAlertOpen)),
      onLeft_(std::move(onLeft)), formerOwner_(input.keyboardOwner()),
      screen_(input.watchScreen()) {
    events_ = input_.onEvent([this](const xcb_generic_event_t& event) { handle(event); });
    selectFocus(input_, borrower_, true);
    renew();
}

X11KeyboardLoan::~X11KeyboardLoan() {
    selectFocus(input_, borrower_, false);
    input_.passKeyboard(borrower_, formerOwner_, leftAt_);
}

void X11KeyboardLoan::renew() {
    leftAt_ = XCB_CURRENT_TIME;
    input_.giveKeyboard(borrower_);
}

void X11KeyboardLoan::look(bool isSettled) {
    isCheckDue_ = false;
    const xcb_window_t owner = input_.keyboardOwner();
    // Windows that appeared before it got the keyboard are in the queue by now.
    input_.dispatchQueued();
    FocusMove move{.isStillHere = owner == borrower_, .isAlertOpen = isAlertOpen_()};
    if (!move.isStillHere && !move.isAlertOpen) {
        move.isOwnerOurs = input_.isOurs(owner);
        move.isOwnerNew = appeared_.contains(input_.topLevel(owner));
        move.formerOwnerExists = input_.isViewable(formerOwner_);
        move.windowVanished = vanishedAt_ && Steady::now() - *vanishedAt_ < settling;
        move.userActed = userActed_;
        move.isSettled = isSettled;
    }
    switch (judge(move)) {
    case FocusVerdict::stay:
        break;
    case FocusVerdict::takeBack:
        formerOwner_ = owner;
        renew();
        break;
    case FocusVerdict::waitAndSee:
        isCheckDue_ = true;
        QTimer::singleShot(frameDelay, &context_, [this] { look(true); });
        break;
    case FocusVerdict::close:
        leave(Leaving::turnedAway);
        break;
    }
}

void X11KeyboardLoan::handle(const xcb_generic_event_t& event) {
    if (const auto press = input_.rawPress(event)) {
        if ((press->button < firstWheelButton || press->button > lastWheelButton) &&
            !isAlertOpen_() && !ownPresses_.covers(press->time) &&
            !input_.isOurs(input_.topLevelUnderPointer())) {
            leftAt_ = press->time;
            leave(Leaving::pressedOutside);
        }
        return;
    }
    switch (event.response_type & ~generatedEvent) {
    case XCB_FOCUS_OUT: {
        const auto& out = as<xcb_focus_out_event_t>(event);
        if (out.event == borrower_) {
            userActed_ = userActed_ || out.mode == XCB_NOTIFY_MODE_GRAB;
            if (!std::exchange(isCheckDue_, true)) {
                QTimer::singleShot(0, &context_, [this] { check(); });
            }
        }
        break;
    }
    case XCB_CONFIGURE_NOTIFY:
        if (!input_.isOurs(as<xcb_configure_notify_event_t>(event).window) &&
            !std::exchange(isCoverDue_, true)) {
            QTimer::singleShot(coverDelay, &context_, [this] {
                isCoverDue_ = false;
                leave(Leaving::covered);
            });
        }
        break;
    case XCB_MAP_NOTIFY:
        appeared_.insert(as<xcb_map_notify_event_t>(event).window);
        break;
    case XCB_UNMAP_NOTIFY:
    case XCB_DESTROY_NOTIFY: {
        // Both events name the window in the same place.
        const xcb_window_t window = as<xcb_unmap_notify_event_t>(event).window;
        appeared_.erase(window);
        if (!input_.isOurs(window)) {
            userActed_ = false;
            vanishedAt_ = Steady::now();
        }
        break;
    }
    default:
        break;
    }
}

void X11KeyboardLoan::leave(Leaving how) {
    // The handler may end this loan.
    if (const auto onLeft = onLeft_) {
        onLeft(how);
    }
}

} // namespace calmora
