// SPDX-License-Identifier: MIT
#include "platform/x11/hotkeys/X11ModifierMap.h"

#include "platform/x11/X11Connection.h"

#include <cstddef>

namespace calmora {

X11ModifierMap readModifierMap(const X11Connection& server) {
    if (!server.isAlive()) {
        return {};
    }
    xcb_connection_t* connection = server.get();
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const X11KeyCode first = setup->min_keycode;
    const auto modifierCookie = xcb_get_modifier_mapping(connection);
    const auto keyCookie = xcb_get_keyboard_mapping(
        connection, first, static_cast<std::uint8_t>(setup->max_keycode - first + 1));
    const X11Reply<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(connection, modifierCookie, nullptr));
    const X11Reply<xcb_get_keyboard_mapping_reply_t> mapping(
        xcb_get_keyboard_mapping_reply(connection, keyCookie, nullptr));
    if (!modifiers || !mapping) {
        return {};
    }
    X11ModifierMap result;
    const xcb_keycode_t* keyCodes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    for (std::size_t bit = 0; bit < result.keys.size(); ++bit) {
        for (std::size_t i = 0; i < modifiers->keycodes_per_modifier; ++i) {
            const X11KeyCode key = keyCodes[bit * modifiers->keycodes_per_modifier + i];
            if (key >= first) {
                result.keys.at(bit).push_back(key);
            }
        }
    }
    const xcb_keysym_t* keysyms = xcb_get_keyboard_mapping_keysyms(mapping.get());
    const std::size_t perKey = mapping->keysyms_per_keycode;
    result.modifiers = x11Modifiers(result.keys, [&](X11KeyCode key) {
        const xcb_keysym_t* begin = keysyms + (key - first) * perKey;
        return std::vector<std::uint32_t>(begin, begin + perKey);
    });
    return result;
}

} // namespace calmora
