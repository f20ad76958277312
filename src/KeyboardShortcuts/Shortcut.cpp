// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/Shortcut.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <limits>

namespace calmora {
namespace {

/// Some fifty times the longest text that is written.
constexpr std::size_t longestText = 4096;

std::optional<std::int64_t> integer(const nlohmann::json& object, const char* member) {
    const auto found = object.find(member);
    if (found == object.end() || !found->is_number_integer()) {
        return std::nullopt;
    }
    constexpr std::uint64_t largest = std::numeric_limits<std::int64_t>::max();
    const bool fits = !found->is_number_unsigned() || found->get<std::uint64_t>() <= largest;
    return fits ? std::optional(found->get<std::int64_t>()) : std::nullopt;
}

} // namespace

std::string ks_symbolicRepresentation(ModifierFlags flags) {
    std::string symbols;
    for (const ModifierKey& key : modifierKeys) {
        if (flags.contains(key.eventFlag)) {
            symbols += key.symbol;
        }
    }
    return symbols;
}

std::optional<Shortcut> Shortcut::fromEvent(const InputEvent& event) {
    if (event.type != InputEventType::keyDown && event.type != InputEventType::keyUp) {
        return std::nullopt;
    }
    return of(event.keyCode, {event.modifiers.mask & ~ModifierFlags::function});
}

std::string encodeShortcut(const Shortcut& shortcut) {
    return "{\"carbonKeyCode\":" + std::to_string(shortcut.carbonKeyCode) +
           ",\"carbonModifiers\":" + std::to_string(shortcut.carbonModifiers) + "}";
}

std::optional<Shortcut> decodeShortcut(std::string_view json) {
    if (json.size() > longestText) {
        return std::nullopt;
    }
    const auto object = nlohmann::json::parse(json, nullptr, /*allow_exceptions=*/false);
    if (!object.is_object()) {
        return std::nullopt;
    }
    const auto keyCode = integer(object, "carbonKeyCode");
    const auto modifiers = integer(object, "carbonModifiers");
    return keyCode && modifiers ? std::optional(Shortcut{*keyCode, *modifiers}) : std::nullopt;
}

} // namespace calmora
