// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace calmora {

/// The program's texts in the user's language.
class LocalizedStrings {
  public:
    virtual ~LocalizedStrings() = default;

    /// The text of a key, which is the English text itself or a symbolic name; the key if there is
    /// no entry. Keeps placeholders ("%lld", "%@"). A `count` chooses the plural form.
    [[nodiscard]] virtual std::string text(std::string_view key,
                                           std::optional<std::int64_t> count = {}) const = 0;
};

/// What a placeholder stands for: "%@" for a text, "%lld" for a number.
using PlaceholderValue = std::variant<std::string, std::int64_t>;

/// The text with its placeholders ("%lld", "%@") replaced by the arguments: each by the next one of
/// its type, since translations may change their order. Surplus placeholders stay, surplus
/// arguments are ignored; placeholders in arguments are not replaced.
[[nodiscard]] inline std::string
fillPlaceholders(std::string_view text, std::initializer_list<PlaceholderValue> arguments) {
    std::vector<PlaceholderValue> left(arguments);
    std::string result;
    while (!text.empty()) {
        const bool isNumber = text.starts_with("%lld");
        const auto argument =
            isNumber || text.starts_with("%@")
                ? std::ranges::find(left, isNumber ? 1U : 0U, &PlaceholderValue::index)
                : left.end();
        if (argument == left.end()) {
            result += text.front();
            text.remove_prefix(1);
            continue;
        }
        result += isNumber ? std::to_string(std::get<std::int64_t>(*argument))
                           : std::get<std::string>(*argument);
        left.erase(argument);
        text.remove_prefix(isNumber ? 4 : 2);
    }
    return result;
}

} // namespace calmora
