#pragma once

#include "KeyboardShortcuts/Key.h"
#include "platform/EventMonitor.h"
#include "platform/InputEvent.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

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
    [[nodiscard]] Key key() const { return Key{carbonKeyCode}; }

    friend auto operator<=>(const Shortcut&, const Shortcut&) = default;
};

} // namespace calmora

template <>
struct std::hash<calmora::Shortcut> {
    std::size_t operator()(const calmora::Shortcut& shortcut) const noexcept {
        const std::hash<std::int64_t> of;
        return of(shortcut.carbonKeyCode) * 31 + of(shortcut.carbonModifiers);
    }
};
