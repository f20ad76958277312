#pragma once

#include "platform/EventMonitor.h"

#include <array>
#include <cstdint>
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

} // namespace calmora
