// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace calmora {

/// A physical key's number in X: evdev's code plus 8.
using X11KeyCode = std::uint8_t;

/// The bits of a Carbon modifier mask.
namespace carbon {
inline constexpr std::uint32_t command = 1U << 8;
inline constexpr std::uint32_t shift = 1U << 9;
inline constexpr std::uint32_t option = 1U << 11;
inline constexpr std::uint32_t control = 1U << 12;
} // namespace carbon

/// The X keycode of a virtual key code; absent for a key that never reaches X (Fn).
/// Source: linux/input-event-codes.h, xkeyboard-config keycodes/evdev.
[[nodiscard]] std::optional<X11KeyCode> x11KeyCode(std::int64_t keyCode);

/// The virtual key code of an X keycode; absent for a key that has none.
[[nodiscard]] std::optional<std::int64_t> virtualKeyCode(X11KeyCode keyCode);

/// Whether this key locks a modifier and so cannot be a hot key: Caps Lock, and Num Lock in place
/// of the keypad's Clear.
[[nodiscard]] constexpr bool isLockKey(std::int64_t keyCode) {
    return keyCode == 57 || keyCode == 71;
}

} // namespace calmora
