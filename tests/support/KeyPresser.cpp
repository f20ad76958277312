#include "support/KeyPresser.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <xcb/xtest.h>

namespace calmora {

KeyPresser::KeyPresser(const std::string& display)
    : connection_(xcb_connect(display.c_str(), nullptr)) {}

KeyPresser::~KeyPresser() {
    for (int key = 0; key < 256; ++key) {
        if (isHeld_[key]) {
            release({static_cast<std::uint8_t>(key)});
        }
    }
    xcb_disconnect(connection_);
}

void KeyPresser::press(std::initializer_list<std::uint8_t> keys) {
    for (const std::uint8_t key : keys) {
        isHeld_[key] = true;
        fake(XCB_KEY_PRESS, key);
    }
    sync();
}

void KeyPresser::release(std::initializer_list<std::uint8_t> keys) {
    for (const std::uint8_t key : keys) {
        isHeld_[key] = false;
        fake(XCB_KEY_RELEASE, key);
    }
    sync();
}

void KeyPresser::tap(std::initializer_list<std::uint8_t> keys) {
    press(keys);
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key) {
        release({*key});
    }
}

void KeyPresser::button(std::uint8_t number, bool isDown) {
    fake(isDown ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, number);
    sync();
}

void KeyPresser::move(int x, int y) {
    fake(XCB_MOTION_NOTIFY, 0, x, y);
    sync();
}

xcb_window_t KeyPresser::root() const {
    return xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
}

void KeyPresser::sync() {
    std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

void KeyPresser::fake(std::uint8_t type, std::uint8_t detail, int x, int y) {
    xcb_test_fake_input(connection_, type, detail, XCB_CURRENT_TIME, XCB_NONE,
                        static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
}

} // namespace calmora
