// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keyboard/KeyCodes.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace calmora {

/// Modifier bits as the X server has them in key events: Shift, Lock, Control, Mod1 to Mod5.
using X11ModifierMask = std::uint16_t;

/// Which bits mean which modifier keys; all but Shift, Lock and Control can be remapped.
struct X11Modifiers {
    static constexpr X11ModifierMask shift = 1;
    static constexpr X11ModifierMask lock = 2;
    static constexpr X11ModifierMask control = 4;

    /// Carries Alt_L; 0 when nothing does. The others likewise.
    X11ModifierMask option = 0;
    X11ModifierMask command = 0;
    X11ModifierMask numLock = 0;
    X11ModifierMask scrollLock = 0;

    friend bool operator==(const X11Modifiers&, const X11Modifiers&) = default;

    /// The bits of a Carbon modifier mask. Absent when one of its modifiers does not exist here,
    /// as Function never does.
    [[nodiscard]] std::optional<X11ModifierMask> fromCarbon(std::uint32_t carbon) const;

    /// The Carbon modifier mask of the bits; locks and everything else are left out.
    [[nodiscard]] std::uint32_t toCarbon(X11ModifierMask mask) const;

    /// The bits without those of locks, pointer buttons and the keyboard layout.
    [[nodiscard]] X11ModifierMask withoutLocks(X11ModifierMask mask) const;

    /// Every combination of the locks, with none first. Hot keys fire under all of them.
    [[nodiscard]] std::vector<X11ModifierMask> lockVariants() const;
};

/// The X keycodes that set each modifier bit, from Shift to Mod5.
using X11ModifierKeys = std::array<std::vector<X11KeyCode>, 8>;

/// The modifier bits that are set while these keys are down.
[[nodiscard]] X11ModifierMask heldModifiers(const X11ModifierKeys& keys,
                                            const std::set<X11KeyCode>& down);

/// Looks the modifiers up; `keysyms` gives all keysyms of a key.
/// Source: X protocol, GetModifierMapping and GetKeyboardMapping.
[[nodiscard]] X11Modifiers
x11Modifiers(const X11ModifierKeys& keys,
             const std::function<std::vector<std::uint32_t>(X11KeyCode)>& keysyms);

} // namespace calmora
