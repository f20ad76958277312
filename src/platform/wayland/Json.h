// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace calmora {

// Reads what compositors send, which may be anything.

using Json = nlohmann::json;

/// A discarded value for what is no JSON.
[[nodiscard]] Json parseJson(std::string_view text);

/// A member of an object; null when it has none.
[[nodiscard]] const Json& jsonMember(const Json& object, const char* name);

/// A text, cut at 1024 bytes; empty for anything else.
[[nodiscard]] std::string jsonText(const Json& object, const char* name);

/// False for anything but true.
[[nodiscard]] bool isJsonTrue(const Json& object, const char* name);

/// A positive number that the type can hold; 0 for anything else.
template <typename Number>
[[nodiscard]] Number jsonNumber(const Json& object, const char* name) {
    const Json& value = jsonMember(object, name);
    const auto given = value.is_number_unsigned() ? value.get<std::uint64_t>() : 0;
    return given <= std::uint64_t(std::numeric_limits<Number>::max()) ? static_cast<Number>(given)
                                                                      : Number{0};
}

} // namespace calmora
