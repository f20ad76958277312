#pragma once

#include "KeyboardShortcuts/Key.h"
#include "platform/EventMonitor.h"
#include "platform/InputEvent.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace calmora {

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
    [[nodiscard]] static Shortcut of(Key key, ModifierFlags modifiers);

    /// The modifiers in event-flag form.
    [[nodiscard]] ModifierFlags modifiers() const;

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
