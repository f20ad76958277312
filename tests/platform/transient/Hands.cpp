#include "Hands.h"

#include <QTest>

#include <cstdlib>

namespace calmora {

bool loopUntil(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 10'000);
}

void loopFor(std::chrono::milliseconds duration) {
    QTest::qWait(static_cast<int>(duration.count()));
}

void Hands::click(int x, int y) {
    move(x, y);
    button(1, true);
    button(1, false);
}

xcb_window_t Hands::openWindow(int x, int y, const std::string& title) {
    const xcb_window_t window = xcb_generate_id(connection());
    const std::uint32_t values[] = {0xffffff, XCB_EVENT_MASK_KEY_PRESS};
    xcb_create_window(connection(), XCB_COPY_FROM_PARENT, window, root(),
                      static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 200, 150, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(title.size()),
                        title.c_str());
    // WM_HINTS: takes the keyboard. WM_NORMAL_HINTS: the place was chosen by the user.
    const std::uint32_t hints[9] = {1, 1};
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_HINTS,
                        XCB_ATOM_WM_HINTS, 32, 9, hints);
    const std::uint32_t size[18] = {1};
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, 18, size);
    xcb_map_window(connection(), window);
    sync();
    return window;
}

xcb_window_t Hands::openIcon(int x, int y, int side) {
    const xcb_window_t window = xcb_generate_id(connection());
    // Takes the clicks itself: otherwise they would go on to the root.
    const std::uint32_t values[] = {1, XCB_EVENT_MASK_BUTTON_PRESS};
    const auto extent = static_cast<std::uint16_t>(side);
    xcb_create_window(connection(), XCB_COPY_FROM_PARENT, window, root(),
                      static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), extent, extent, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(connection(), window);
    sync();
    return window;
}

void Hands::closeWindow(xcb_window_t window) {
    xcb_destroy_window(connection(), window);
    sync();
}

xcb_window_t Hands::keyboardOwner() {
    xcb_get_input_focus_reply_t* reply =
        xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr);
    const xcb_window_t owner = reply ? reply->focus : xcb_window_t{XCB_NONE};
    std::free(reply);
    return owner;
}

xcb_window_t Hands::topmost() {
    xcb_query_tree_reply_t* tree =
        xcb_query_tree_reply(connection(), xcb_query_tree(connection(), root()), nullptr);
    xcb_window_t top = XCB_NONE;
    for (int index = tree ? xcb_query_tree_children_length(tree) : 0; index > 0 && top == XCB_NONE;
         --index) {
        const xcb_window_t window = xcb_query_tree_children(tree)[index - 1];
        xcb_get_window_attributes_reply_t* attributes = xcb_get_window_attributes_reply(
            connection(), xcb_get_window_attributes(connection(), window), nullptr);
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
            attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT) {
            top = window;
        }
        std::free(attributes);
    }
    std::free(tree);
    return top;
}

} // namespace calmora
