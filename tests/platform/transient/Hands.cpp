#include "Hands.h"

#include <QTest>

#include <cstdlib>
#include <stdexcept>
#include <xcb/xcb_keysyms.h>
#include <xcb/xtest.h>

namespace calmora {

bool loopUntil(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 10'000);
}

void loopFor(std::chrono::milliseconds duration) {
    QTest::qWait(static_cast<int>(duration.count()));
}

Hands::Hands() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_.get()) != 0) {
        throw std::runtime_error("no display");
    }
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
}

Hands::~Hands() = default;

void Hands::fake(std::uint8_t type, std::uint8_t detail, int x, int y) {
    xcb_test_fake_input(connection_.get(), type, detail, XCB_CURRENT_TIME, screen_->root,
                        static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
    sync();
}

void Hands::move(int x, int y) {
    fake(XCB_MOTION_NOTIFY, 0, x, y);
}

void Hands::press(int button) {
    fake(XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button));
}

void Hands::release(int button) {
    fake(XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button));
}

void Hands::click(int x, int y) {
    move(x, y);
    press();
    release();
}

void Hands::keyDown(std::uint32_t keysym) {
    fake(XCB_KEY_PRESS, keycode(keysym));
}

void Hands::keyUp(std::uint32_t keysym) {
    fake(XCB_KEY_RELEASE, keycode(keysym));
}

xcb_keycode_t Hands::keycode(std::uint32_t keysym) {
    xcb_key_symbols_t* symbols = xcb_key_symbols_alloc(connection_.get());
    xcb_keycode_t* codes = xcb_key_symbols_get_keycode(symbols, keysym);
    const xcb_keycode_t code = codes ? codes[0] : xcb_keycode_t{0};
    std::free(codes);
    xcb_key_symbols_free(symbols);
    return code;
}

xcb_window_t Hands::openWindow(int x, int y, const std::string& title) {
    const xcb_window_t window = xcb_generate_id(connection_.get());
    const std::uint32_t values[] = {screen_->white_pixel, XCB_EVENT_MASK_KEY_PRESS};
    xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window, screen_->root,
                      static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 200, 150, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(title.size()),
                        title.c_str());
    // WM_HINTS: takes the keyboard. WM_NORMAL_HINTS: the place was chosen by the user.
    const std::uint32_t hints[9] = {1, 1};
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_HINTS,
                        XCB_ATOM_WM_HINTS, 32, 9, hints);
    const std::uint32_t size[18] = {1};
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, 18, size);
    xcb_map_window(connection_.get(), window);
    sync();
    return window;
}

xcb_window_t Hands::openIcon(int x, int y, int side) {
    const xcb_window_t window = xcb_generate_id(connection_.get());
    // Takes the clicks itself: otherwise they would go on to the root.
    const std::uint32_t values[] = {1, XCB_EVENT_MASK_BUTTON_PRESS};
    const auto extent = static_cast<std::uint16_t>(side);
    xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window, screen_->root,
                      static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), extent, extent, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(connection_.get(), window);
    sync();
    return window;
}

void Hands::closeWindow(xcb_window_t window) {
    xcb_destroy_window(connection_.get(), window);
    sync();
}

xcb_window_t Hands::keyboardOwner() {
    xcb_get_input_focus_reply_t* reply = xcb_get_input_focus_reply(
        connection_.get(), xcb_get_input_focus(connection_.get()), nullptr);
    const xcb_window_t owner = reply ? reply->focus : xcb_window_t{XCB_NONE};
    std::free(reply);
    return owner;
}

xcb_window_t Hands::topmost() {
    xcb_query_tree_reply_t* tree = xcb_query_tree_reply(
        connection_.get(), xcb_query_tree(connection_.get(), screen_->root), nullptr);
    xcb_window_t top = XCB_NONE;
    for (int index = tree ? xcb_query_tree_children_length(tree) : 0; index > 0 && top == XCB_NONE;
         --index) {
        const xcb_window_t window = xcb_query_tree_children(tree)[index - 1];
        xcb_get_window_attributes_reply_t* attributes = xcb_get_window_attributes_reply(
            connection_.get(), xcb_get_window_attributes(connection_.get(), window), nullptr);
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
            attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT) {
            top = window;
        }
        std::free(attributes);
    }
    std::free(tree);
    return top;
}

void Hands::sync() {
    xcb_flush(connection_.get());
    keyboardOwner();
}

} // namespace calmora
