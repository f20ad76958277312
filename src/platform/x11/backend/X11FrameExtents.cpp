// SPDX-License-Identifier: MIT
#include "platform/x11/backend/X11FrameExtents.h"

#include "platform/x11/X11Connection.h"

#include <QGuiApplication>
#include <QRect>
#include <QWindow>

#include <array>
#include <cstdint>
#include <string_view>
#include <xcb/shape.h>

namespace calmora {

void setFrameExtents(const QWindow& window, const QRect& inner) {
    constexpr std::string_view name = "_GTK_FRAME_EXTENTS";
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (QGuiApplication::platformName() != "xcb" || x11 == nullptr) {
        return;
    }
    xcb_connection_t* connection = x11->connection();
    const X11Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, name.size(), name.data()), nullptr));
    if (!atom) {
        return;
    }
    const QSize whole = window.size() * window.devicePixelRatio();
    const std::array<std::uint32_t, 4> extents{
        static_cast<std::uint32_t>(inner.left()),
        static_cast<std::uint32_t>(whole.width() - inner.left() - inner.width()),
        static_cast<std::uint32_t>(inner.top()),
        static_cast<std::uint32_t>(whole.height() - inner.top() - inner.height())};
    const xcb_rectangle_t area{
        static_cast<std::int16_t>(inner.x()), static_cast<std::int16_t>(inner.y()),
        static_cast<std::uint16_t>(inner.width()), static_cast<std::uint16_t>(inner.height())};
    const auto id = static_cast<xcb_window_t>(window.winId());
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, atom->atom, XCB_ATOM_CARDINAL, 32,
                        extents.size(), extents.data());
    xcb_shape_rectangles(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
                         XCB_CLIP_ORDERING_UNSORTED, id, 0, 0, 1, &area);
    xcb_flush(connection);
}

} // namespace calmora
