// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"

#include <xcb/xtest.h>

namespace calmora {

/// Presses and releases keys of a display as a hand does, by X keycode; it looks at no layout and
/// touches no other key. Each function returns when the server has taken what it was given.
/// Source: XTEST extension, FakeInput.
class KeyPresser {
  public:
    explicit KeyPresser(const std::string& display) : server_(display) {}

    void press(std::initializer_list<std::uint8_t> keys) {
        for (const std::uint8_t key : keys) {
            fake(XCB_KEY_PRESS, key);
        }
    }

    void release(std::initializer_list<std::uint8_t> keys) {
        for (const std::uint8_t key : keys) {
            fake(XCB_KEY_RELEASE, key);
        }
    }

    /// Presses the keys in order and releases them in the opposite order.
    void tap(std::initializer_list<std::uint8_t> keys) {
        press(keys);
        for (auto key = std::rbegin(keys); key != std::rend(keys); ++key) {
            release({*key});
        }
    }

    /// Presses or releases a pointer button where the pointer is.
    void button(std::uint8_t number, bool isDown) {
        fake(isDown ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, number);
    }

    /// Moves the pointer there.
    void move(int x, int y) { fake(XCB_MOTION_NOTIFY, 0, x, y); }

    /// A connection that belongs to another client than the one under test.
    [[nodiscard]] xcb_connection_t* connection() const { return server_.get(); }

    [[nodiscard]] xcb_window_t root() const { return server_.root(); }

    /// The window that gets the keys.
    xcb_window_t keyboardOwner() {
        const X11Reply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
        return reply ? reply->focus : xcb_window_t{XCB_NONE};
    }

    /// Waits until the server has done what was asked.
    void sync() { keyboardOwner(); }

  private:
    void fake(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0) {
        xcb_test_fake_input(connection(), type, detail, XCB_CURRENT_TIME, XCB_NONE,
                            static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
        sync();
    }

    X11Connection server_;
};

} // namespace calmora
