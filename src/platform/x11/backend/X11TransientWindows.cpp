// SPDX-License-Identifier: MIT
#include "platform/x11/backend/X11TransientWindows.h"

#include "platform/x11/backend/X11FocusGrab.h"

#include <QGuiApplication>
#include <QRect>
#include <QWindow>

#include <utility>
#include <xcb/shape.h>

namespace calmora {

namespace {

/// Sends what Qt has queued, so that a window of ours exists before another connection names it.
void syncQt() {
    xcb_connection_t* connection =
        qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    const X11Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

} // namespace

Qt::WindowFlags X11TransientWindows::transientFlags() const {
    return Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint;
}

bool X11TransientWindows::isComposited() {
    return input_.isComposited();
}

void X11TransientWindows::setInputArea(QWindow& window, const QRect& inner) {
    const xcb_rectangle_t area{
        static_cast<std::int16_t>(inner.x()), static_cast<std::int16_t>(inner.y()),
        static_cast<std::uint16_t>(inner.width()), static_cast<std::uint16_t>(inner.height())};
    syncQt();
    xcb_shape_rectangles(input_.connection(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
                         XCB_CLIP_ORDERING_UNSORTED, static_cast<xcb_window_t>(window.winId()), 0,
                         0, 1, &area);
    xcb_flush(input_.connection());
}

std::unique_ptr<FocusGrab> X11TransientWindows::grabFocus(QWindow& window,
                                                          std::function<bool()> isAlertOpen,
                                                          std::function<void(Leaving)> onLeft) {
    syncQt();
    return std::make_unique<X11FocusGrab>(input_, static_cast<xcb_window_t>(window.winId()),
                                          std::move(isAlertOpen), std::move(onLeft));
}

std::optional<ModifierFlags> X11TransientWindows::modifiers() {
    return input_.modifiers();
}

std::optional<std::uint32_t> X11TransientWindows::eventTime() {
    return input_.serverTime();
}

} // namespace calmora
