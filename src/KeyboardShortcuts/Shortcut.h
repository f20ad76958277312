// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Key.h"
#include "platform/EventMonitor.h"

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace calmora {

/// Modifier masks in the form that shortcuts store and the system takes.
struct CarbonModifiers {
    static constexpr std::int64_t command = 1 << 8;
    static constexpr std::int64_t shift = 1 << 9;
    static constexpr std::int64_t option = 1 << 11;
    static constexpr std::int64_t control = 1 << 12;
    static constexpr std::int64_t function = 1 << 17;
};

/// One modifier key in its two forms, with its symbol and its name. UTF-8.
struct ModifierKey {
    std::uint32_t eventFlag;
    std::int64_t carbon;
    std::string_view symbol;
    /// As keyboards for Linux name it; also the name of the localized text.
    std::string_view spokenName;
};

/// The five modifiers in the order in which they are written.
inline constexpr std::array<ModifierKey, 5> modifierKeys{{
    {ModifierFlags::control, CarbonModifiers::control, "\u2303", "Control"},
    {ModifierFlags::option, CarbonModifiers::option, "\u2325", "Alt"},
    {ModifierFlags::shift, CarbonModifiers::shift, "\u21E7", "Shift"},
    {ModifierFlags::command, CarbonModifiers::command, "\u2318", "Super"},
    {ModifierFlags::function, CarbonModifiers::function, "\U0001F310\uFE0E", "Fn"},
}};

/// The Carbon form; drops all other bits.
[[nodiscard]] constexpr std::int64_t carbonModifiers(ModifierFlags flags) {
    std::int64_t mask = 0;
    for (const ModifierKey& key : modifierKeys) {
        mask |= flags.contains(key.eventFlag) ? key.carbon : 0;
    }
    return mask;
}

/// The event-flag form; drops all other bits.
[[nodiscard]] constexpr ModifierFlags modifierFlags(std::int64_t carbonMask) {
    ModifierFlags flags;
    for (const ModifierKey& key : modifierKeys) {
        flags.mask |= (carbonMask & key.carbon) != 0 ? key.eventFlag : 0;
    }
    return flags;
}

/// The Carbon mask with the five modifiers only.
[[nodiscard]] constexpr std::int64_t normalizedCarbonModifiers(std::int64_t carbonMask) {
    return carbonModifiers(modifierFlags(carbonMask));
}

/// The symbols of the modifiers, each at most once and always in the same order.
[[nodiscard]] std::string ks_symbolicRepresentation(ModifierFlags flags);

/// A key with the modifiers to hold.
struct Shortcut {
    /// Virtual key code.
    std::int64_t carbonKeyCode = 0;
    /// Mask of CarbonModifiers.
    std::int64_t carbonModifiers = 0;

    /// The shortcut of a key event, without the Function modifier, which arrow and function keys
    /// carry by themselves. Absent for any other event.
    [[nodiscard]] static std::optional<Shortcut> fromEvent(const InputEvent& event);

    /// The shortcut of a key and event-flag modifiers.
    [[nodiscard]] static Shortcut of(Key key, ModifierFlags modifiers) {
        return {key.rawValue, calmora::carbonModifiers(modifiers)};
    }

    /// The modifiers in event-flag form.
    [[nodiscard]] ModifierFlags modifiers() const { return modifierFlags(carbonModifiers); }

    /// The key.
    [[nodiscard]] Key key() const { return {carbonKeyCode}; }

    friend auto operator<=>(const Shortcut&, const Shortcut&) = default;
};

/// The stored form: a JSON object of two integers, always in the same order, without white space.
[[nodiscard]] std::string encodeShortcut(const Shortcut& shortcut);

/// Reads the stored form with its members in either order. Absent for anything else, whatever its
/// size or depth.
[[nodiscard]] std::optional<Shortcut> decodeShortcut(std::string_view json);

/// The name under which a shortcut is stored. Compared by `rawValue` alone. Made by
/// KeyboardShortcuts::name(), which also stores the default.
struct ShortcutName {
    /// Unique within the program.
    std::string rawValue;
    /// Stored when the name is first made.
    std::optional<Shortcut> defaultShortcut;

    friend bool operator==(const ShortcutName& a, const ShortcutName& b) {
        return a.rawValue == b.rawValue;
    }

    friend auto operator<=>(const ShortcutName& a, const ShortcutName& b) {
        return a.rawValue <=> b.rawValue;
    }
};

} // namespace calmora
