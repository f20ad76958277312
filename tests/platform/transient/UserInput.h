#pragma once

#include "support/KeyPresser.h"

namespace calmora {

/// The user's input and another program's windows, on a connection of their own.
class UserInput : public KeyPresser {
  public:
    UserInput() : KeyPresser({}) {}

    /// Moves there, presses and releases.
    void click(int x, int y) {
        move(x, y);
        clickHere(1);
    }

    /// Presses and releases a button where the pointer is.
    void clickHere(std::uint8_t number) {
        button(number, true);
        button(number, false);
    }

    /// A new window of another program, on screen.
    xcb_window_t openWindow(int x, int y) {
        const xcb_window_t window = create(x, y, 200, XCB_CW_BACK_PIXEL, 0xffffff);
        // WM_HINTS: takes the keyboard. WM_NORMAL_HINTS: the place was chosen by the user.
        const std::uint32_t hints[9] = {1, 1};
        xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_HINTS,
                            XCB_ATOM_WM_HINTS, 32, 9, hints);
        const std::uint32_t size[18] = {1};
        xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
                            XCB_ATOM_WM_SIZE_HINTS, 32, 18, size);
        return show(window);
    }

    /// A window that no window manager touches, such as an icon of a panel.
    xcb_window_t openIcon(int x, int y, int side) {
        return show(create(x, y, side, XCB_CW_OVERRIDE_REDIRECT, 1));
    }

    void closeWindow(xcb_window_t window) {
        xcb_destroy_window(connection(), window);
        sync();
    }

    xcb_window_t keyboardOwner() {
        const X11Reply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
        return reply ? reply->focus : xcb_window_t{XCB_NONE};
    }

    /// The uppermost window that can be seen.
    [[nodiscard]] xcb_window_t topmost() {
        const X11Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection(), xcb_query_tree(connection(), root()), nullptr));
        for (int index = xcb_query_tree_children_length(tree.get()); index > 0; --index) {
            const xcb_window_t window = xcb_query_tree_children(tree.get())[index - 1];
            const auto question = xcb_get_window_attributes(connection(), window);
            const X11Reply<xcb_get_window_attributes_reply_t> attributes(
                xcb_get_window_attributes_reply(connection(), question, nullptr));
            if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
                attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT) {
                return window;
            }
        }
        return XCB_NONE;
    }

  private:
    /// Takes the clicks and keys itself: otherwise they would go on to the root.
    xcb_window_t create(int x, int y, int side, std::uint32_t attribute, std::uint32_t value) {
        const xcb_window_t window = xcb_generate_id(connection());
        const std::uint32_t values[] = {value,
                                        XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_BUTTON_PRESS};
        const auto extent = static_cast<std::uint16_t>(side);
        xcb_create_window(connection(), XCB_COPY_FROM_PARENT, window, root(),
                          static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), extent,
                          extent, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          attribute | XCB_CW_EVENT_MASK, values);
        return window;
    }

    xcb_window_t show(xcb_window_t window) {
        xcb_map_window(connection(), window);
        sync();
        return window;
    }
};

} // namespace calmora
