// SPDX-License-Identifier: MIT
#include "platform/x11/hotkeys/X11KeyboardLayout.h"

#include "platform/x11/hotkeys/X11Keyboard.h"
#include "platform/x11/hotkeys/XcbXkb.h"

#include <utility>
#include <xkbcommon/xkbcommon-x11.h>

namespace calmora {

X11KeyboardLayout::X11KeyboardLayout(X11Keyboard& keyboard, ReadKeymap readOther)
    : keyboard_(keyboard), readOther_(std::move(readOther)),
      layoutChanges_(keyboard.onLayoutChanged([this] {
          keymap_.reset();
          changed_.emit();
      })) {}

void X11KeyboardLayout::read() const {
    readFromServer();
    if (!keymap_) {
        readFromOther();
    }
    if (!keymap_) {
        keymap_ = americanKeymap(context_.get());
        layout_ = 0;
    }
}

void X11KeyboardLayout::readFromOther() const {
    XkbKeymap keymap = context_ && readOther_ ? readOther_(context_.get()) : nullptr;
    const auto found = keymap ? asciiLayout(*keymap, 0) : std::nullopt;
    if (found) {
        keymap_ = std::move(keymap);
        layout_ = *found;
    }
}

void X11KeyboardLayout::readFromServer() const {
    if (!context_ || !keyboard_.isAlive()) {
        return;
    }
    xcb_connection_t* connection = keyboard_.connection().get();
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(connection);
    if (device < 0) {
        return;
    }
    XkbKeymap keymap(xkb_x11_keymap_new_from_device(context_.get(), connection, device,
                                                    XKB_KEYMAP_COMPILE_NO_FLAGS));
    const auto state = keyboard_.connection().ask<xcb_xkb_get_state, xcb_xkb_get_state_reply>(
        XCB_XKB_ID_USE_CORE_KBD);
    keyboard_.flush();
    if (!keymap || !state) {
        return;
    }
    if (const auto found = asciiLayout(*keymap, state->group)) {
        keymap_ = std::move(keymap);
        layout_ = *found;
    }
}

std::optional<std::string> X11KeyboardLayout::character(std::int64_t keyCode) const {
    return characterOn(keyCode, 0);
}

std::optional<std::string> X11KeyboardLayout::shiftedCharacter(std::int64_t keyCode) const {
    return characterOn(keyCode, 1);
}

std::optional<std::string> X11KeyboardLayout::characterOn(std::int64_t keyCode,
                                                          std::uint32_t level) const {
    if (!keymap_) {
        read();
    }
    const auto key = x11KeyCode(keyCode);
    return keymap_ && key ? characterOf(*keymap_, layout_, *key, level) : std::nullopt;
}

bool X11KeyboardLayout::isDeadKey(std::int64_t keyCode, bool withShift) const {
    if (!keymap_) {
        read();
    }
    const auto key = x11KeyCode(keyCode);
    return keymap_ && key && isDead(*keymap_, layout_, *key, withShift ? 1 : 0);
}

std::optional<std::int64_t> X11KeyboardLayout::keyCode(std::uint32_t nativeKey) const {
    constexpr std::uint32_t lastKey = 255;
    return nativeKey <= lastKey ? virtualKeyCode(static_cast<X11KeyCode>(nativeKey)) : std::nullopt;
}

} // namespace calmora
