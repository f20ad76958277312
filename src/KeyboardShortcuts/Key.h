// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

namespace calmora {

/// A key of the keyboard by its virtual key code, which numbers places on the keyboard and not
/// characters: `a` is the key that is marked A on a US keyboard.
struct Key {
    // clang-format off
    /// The named keys.
    enum Code : std::int64_t {
        // Letters.
        a = 0, b = 11, c = 8, d = 2, e = 14, f = 3, g = 5, h = 4, i = 34, j = 38, k = 40, l = 37,
        m = 46, n = 45, o = 31, p = 35, q = 12, r = 15, s = 1, t = 17, u = 32, v = 9, w = 13, x = 7,
        y = 16, z = 6,
        // Digits and punctuation.
        zero = 29, one = 18, two = 19, three = 20, four = 21, five = 23, six = 22, seven = 26,
        eight = 28, nine = 25, backtick = 50, minus = 27, equal = 24, leftBracket = 33,
        rightBracket = 30, backslash = 42, semicolon = 41, quote = 39, comma = 43, period = 47,
        slash = 44, isoSection = 10, jisYen = 93, jisUnderscore = 94, jisEisu = 102, jisKana = 104,
        // Keys that move, delete or end something.
        return_ = 36, tab = 48, space = 49, delete_ = 51, deleteForward = 117, escape = 53,
        help = 114, home = 115, end = 119, pageUp = 116, pageDown = 121, upArrow = 126,
        downArrow = 125, leftArrow = 123, rightArrow = 124, contextualMenu = 110,
        // Function keys.
        f1 = 122, f2 = 120, f3 = 99, f4 = 118, f5 = 96, f6 = 97, f7 = 98, f8 = 100, f9 = 101,
        f10 = 109, f11 = 103, f12 = 111, f13 = 105, f14 = 107, f15 = 113, f16 = 106, f17 = 64,
        f18 = 79, f19 = 80, f20 = 90,
        // The keypad.
        keypad0 = 82, keypad1 = 83, keypad2 = 84, keypad3 = 85, keypad4 = 86, keypad5 = 87,
        keypad6 = 88, keypad7 = 89, keypad8 = 91, keypad9 = 92, keypadDecimal = 65,
        keypadMultiply = 67, keypadPlus = 69, keypadClear = 71, keypadDivide = 75, keypadEnter = 76,
        keypadMinus = 78, keypadEquals = 81, jisKeypadComma = 95,
        // Modifiers: no key presses of their own.
        command = 55, shift = 56, capsLock = 57, option = 58, control = 59, rightCommand = 54,
        rightShift = 60, rightOption = 61, rightControl = 62, function = 63,
        // Sound.
        volumeUp = 72, volumeDown = 73, mute = 74,
    };

    // clang-format on

    std::int64_t rawValue = 0;

    /// The key with a code, which may be one without a name.
    constexpr Key(std::int64_t code) : rawValue(code) {}

    friend constexpr auto operator<=>(const Key&, const Key&) = default;
};

/// A key that has no character of its own and is always shown by a fixed text in UTF-8.
struct SpecialKey {
    Key key;
    /// How it is shown; for the space and menu keys the name of a localized text.
    std::string_view text;
    /// Its name in English, which is also the name of the localized text.
    std::string_view spokenName;
    /// Number of a function key, from 1; 0 for any other key.
    int functionNumber = 0;
    bool isKeypad = false;
};

/// The special key with this virtual key code, one of 54; null when there is none.
[[nodiscard]] const SpecialKey* specialKey(Key key);

} // namespace calmora
