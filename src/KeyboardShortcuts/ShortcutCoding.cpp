#include "KeyboardShortcuts/ShortcutCoding.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <limits>

namespace calmora {
namespace {

// Some fifty times the longest that is ever written; what is longer is not ours to read.
constexpr std::size_t longestText = 4096;

std::optional<std::int64_t> integer(const nlohmann::json& object, const char* member) {
    const auto found = object.find(member);
    if (found == object.end() || !found->is_number_integer()) {
        return std::nullopt;
    }
    if (found->is_number_unsigned() &&
        found->get<std::uint64_t>() > std::uint64_t{std::numeric_limits<std::int64_t>::max()}) {
        return std::nullopt;
    }
    return found->get<std::int64_t>();
}

} // namespace

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
    if (!keyCode || !modifiers) {
        return std::nullopt;
    }
    return Shortcut{*keyCode, *modifiers};
}

} // namespace calmora
