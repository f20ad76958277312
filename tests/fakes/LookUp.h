// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace calmora {

/// The value under a key; absent if there is none.
template <typename Map, typename Key>
std::optional<typename Map::mapped_type> lookUp(const Map& map, const Key& key) {
    const auto found = map.find(key);
    return found != map.end() ? std::optional(found->second) : std::nullopt;
}

} // namespace calmora
