// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/Key.h"

#include <algorithm>
#include <array>

namespace calmora {
namespace {

// U+20E3 draws a keycap around the character before it.
constexpr auto specialKeys = std::to_array<SpecialKey>({
    {Key::return_, "\u21A9", "Return"},
    {Key::delete_, "\u232B", "Backspace"},
    {Key::deleteForward, "\u2326", "Delete"},
    {Key::end, "\u2198", "End"},
    {Key::escape, "\u238B", "Escape"},
    {Key::help, "?\u20DD", "Insert"},
    {Key::home, "\u2196", "Home"},
    {Key::space, "space_key", "Space"},
    {Key::tab, "\u21E5", "Tab"},
    {Key::pageUp, "\u21DE", "Page Up"},
    {Key::pageDown, "\u21DF", "Page Down"},
    {Key::upArrow, "\u2191", "Up"},
    {Key::rightArrow, "\u2192", "Right"},
    {Key::downArrow, "\u2193", "Down"},
    {Key::leftArrow, "\u2190", "Left"},
    {Key::contextualMenu, "Menu", "Menu"},
    {Key::f1, "F1", "F1", 1},
    {Key::f2, "F2", "F2", 2},
    {Key::f3, "F3", "F3", 3},
    {Key::f4, "F4", "F4", 4},
    {Key::f5, "F5", "F5", 5},
    {Key::f6, "F6", "F6", 6},
    {Key::f7, "F7", "F7", 7},
    {Key::f8, "F8", "F8", 8},
    {Key::f9, "F9", "F9", 9},
    {Key::f10, "F10", "F10", 10},
    {Key::f11, "F11", "F11", 11},
    {Key::f12, "F12", "F12", 12},
    {Key::f13, "F13", "F13", 13},
    {Key::f14, "F14", "F14", 14},
    {Key::f15, "F15", "F15", 15},
    {Key::f16, "F16", "F16", 16},
    {Key::f17, "F17", "F17", 17},
    {Key::f18, "F18", "F18", 18},
    {Key::f19, "F19", "F19", 19},
    {Key::f20, "F20", "F20", 20},
    {Key::keypad0, "0\u20E3", "Keypad 0", 0, true},
    {Key::keypad1, "1\u20E3", "Keypad 1", 0, true},
    {Key::keypad2, "2\u20E3", "Keypad 2", 0, true},
    {Key::keypad3, "3\u20E3", "Keypad 3", 0, true},
    {Key::keypad4, "4\u20E3", "Keypad 4", 0, true},
    {Key::keypad5, "5\u20E3", "Keypad 5", 0, true},
    {Key::keypad6, "6\u20E3", "Keypad 6", 0, true},
    {Key::keypad7, "7\u20E3", "Keypad 7", 0, true},
    {Key::keypad8, "8\u20E3", "Keypad 8", 0, true},
    {Key::keypad9, "9\u20E3", "Keypad 9", 0, true},
    {Key::keypadClear, "\u2612\u20E3", "Num Lock", 0, true},
    {Key::keypadDecimal, ".\u20E3", "Keypad .", 0, true},
    {Key::keypadDivide, "/\u20E3", "Keypad /", 0, true},
    {Key::keypadEnter, "\u21A9\u20E3", "Keypad Enter", 0, true},
    {Key::keypadEquals, "=\u20E3", "Keypad =", 0, true},
    {Key::keypadMinus, "-\u20E3", "Keypad -", 0, true},
    {Key::keypadMultiply, "*\u20E3", "Keypad *", 0, true},
    {Key::keypadPlus, "+\u20E3", "Keypad +", 0, true},
});

static_assert(specialKeys.size() == 54);

} // namespace

const SpecialKey* specialKey(Key key) {
    const auto* const found = std::ranges::find(specialKeys, key, &SpecialKey::key);
    return found != specialKeys.end() ? found : nullptr;
}

} // namespace calmora
