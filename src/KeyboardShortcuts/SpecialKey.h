#pragma once

#include "KeyboardShortcuts/Key.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace calmora {

/// A key that has no character of its own and is always shown by a fixed text.
enum class SpecialKey : std::uint8_t {
    return_,
    delete_,
    deleteForward,
    end,
    escape,
    help,
    home,
    space,
    tab,
    pageUp,
    pageDown,
    upArrow,
    rightArrow,
    downArrow,
    leftArrow,
    f1,
    f2,
    f3,
    f4,
    f5,
    f6,
    f7,
    f8,
    f9,
    f10,
    f11,
    f12,
    f13,
    f14,
    f15,
    f16,
    f17,
    f18,
    f19,
    f20,
    keypad0,
    keypad1,
    keypad2,
    keypad3,
    keypad4,
    keypad5,
    keypad6,
    keypad7,
    keypad8,
    keypad9,
    keypadClear,
    keypadDecimal,
    keypadDivide,
    keypadEnter,
    keypadEquals,
    keypadMinus,
    keypadMultiply,
    keypadPlus,
};

/// How many there are.
inline constexpr std::size_t specialKeyCount = 53;

/// What is fixed about a special key. All texts are UTF-8.
struct SpecialKeyInfo {
    SpecialKey specialKey;
    Key key;
    /// How it is shown; for the space key the name of a localized text.
    std::string_view text;
    /// Its name in English, which is also the name of the localized text.
    std::string_view spokenName;
};

/// The special key with this virtual key code; absent when the code is none of theirs.
[[nodiscard]] std::optional<SpecialKey> specialKey(std::int64_t keyCode);

/// What is fixed about the key.
[[nodiscard]] const SpecialKeyInfo& specialKeyInfo(SpecialKey key);

/// Whether it is a key of the keypad.
[[nodiscard]] bool isKeypadKey(SpecialKey key);

/// The number of a function key, from 1; absent for any other key.
[[nodiscard]] std::optional<int> functionKeyNumber(SpecialKey key);

} // namespace calmora
