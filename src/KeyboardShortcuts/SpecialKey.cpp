#include "KeyboardShortcuts/SpecialKey.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace calmora {
namespace {

using enum SpecialKey;

// In the order of the enumeration. U+20E3 draws a keycap around what stands before it.
constexpr std::array<SpecialKeyInfo, specialKeyCount> table{{
    {return_, Key{36}, "\u21A9", "Return"},
    {delete_, Key{51}, "\u232B", "Backspace"},
    {deleteForward, Key{117}, "\u2326", "Delete"},
    {end, Key{119}, "\u2198", "End"},
    {escape, Key{53}, "\u238B", "Escape"},
    {help, Key{114}, "?\u20DD", "Insert"},
    {home, Key{115}, "\u2196", "Home"},
    {space, Key{49}, "space_key", "Space"},
    {tab, Key{48}, "\u21E5", "Tab"},
    {pageUp, Key{116}, "\u21DE", "Page Up"},
    {pageDown, Key{121}, "\u21DF", "Page Down"},
    {upArrow, Key{126}, "\u2191", "Up"},
    {rightArrow, Key{124}, "\u2192", "Right"},
    {downArrow, Key{125}, "\u2193", "Down"},
    {leftArrow, Key{123}, "\u2190", "Left"},
    {f1, Key{122}, "F1", "F1"},
    {f2, Key{120}, "F2", "F2"},
    {f3, Key{99}, "F3", "F3"},
    {f4, Key{118}, "F4", "F4"},
    {f5, Key{96}, "F5", "F5"},
    {f6, Key{97}, "F6", "F6"},
    {f7, Key{98}, "F7", "F7"},
    {f8, Key{100}, "F8", "F8"},
    {f9, Key{101}, "F9", "F9"},
    {f10, Key{109}, "F10", "F10"},
    {f11, Key{103}, "F11", "F11"},
    {f12, Key{111}, "F12", "F12"},
    {f13, Key{105}, "F13", "F13"},
    {f14, Key{107}, "F14", "F14"},
    {f15, Key{113}, "F15", "F15"},
    {f16, Key{106}, "F16", "F16"},
    {f17, Key{64}, "F17", "F17"},
    {f18, Key{79}, "F18", "F18"},
    {f19, Key{80}, "F19", "F19"},
    {f20, Key{90}, "F20", "F20"},
    {keypad0, Key{82}, "0\u20E3", "Keypad 0"},
    {keypad1, Key{83}, "1\u20E3", "Keypad 1"},
    {keypad2, Key{84}, "2\u20E3", "Keypad 2"},
    {keypad3, Key{85}, "3\u20E3", "Keypad 3"},
    {keypad4, Key{86}, "4\u20E3", "Keypad 4"},
    {keypad5, Key{87}, "5\u20E3", "Keypad 5"},
    {keypad6, Key{88}, "6\u20E3", "Keypad 6"},
    {keypad7, Key{89}, "7\u20E3", "Keypad 7"},
    {keypad8, Key{91}, "8\u20E3", "Keypad 8"},
    {keypad9, Key{92}, "9\u20E3", "Keypad 9"},
    {keypadClear, Key{71}, "\u2612\u20E3", "Num Lock"},
    {keypadDecimal, Key{65}, ".\u20E3", "Keypad ."},
    {keypadDivide, Key{75}, "/\u20E3", "Keypad /"},
    {keypadEnter, Key{76}, "\u21A9\u20E3", "Keypad Enter"},
    {keypadEquals, Key{81}, "=\u20E3", "Keypad ="},
    {keypadMinus, Key{78}, "-\u20E3", "Keypad -"},
    {keypadMultiply, Key{67}, "*\u20E3", "Keypad *"},
    {keypadPlus, Key{69}, "+\u20E3", "Keypad +"},
}};

static_assert(std::ranges::all_of(table, [](const SpecialKeyInfo& row) {
    return &row == &table.at(static_cast<std::size_t>(row.specialKey));
}));

int distance(SpecialKey from, SpecialKey to) {
    return static_cast<int>(to) - static_cast<int>(from);
}

} // namespace

std::optional<SpecialKey> specialKey(std::int64_t keyCode) {
    static const auto byKeyCode = [] {
        std::unordered_map<std::int64_t, SpecialKey> map;
        for (const SpecialKeyInfo& row : table) {
            map.emplace(row.key.rawValue, row.specialKey);
        }
        return map;
    }();
    const auto found = byKeyCode.find(keyCode);
    return found != byKeyCode.end() ? std::optional(found->second) : std::nullopt;
}

const SpecialKeyInfo& specialKeyInfo(SpecialKey key) {
    return table.at(static_cast<std::size_t>(key));
}

bool isKeypadKey(SpecialKey key) {
    return key >= keypad0 && key <= keypadPlus;
}

std::optional<int> functionKeyNumber(SpecialKey key) {
    return key >= f1 && key <= f20 ? std::optional(distance(f1, key) + 1) : std::nullopt;
}

} // namespace calmora
