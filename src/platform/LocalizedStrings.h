// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

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

/// The text with its placeholders ("%lld", "%@") replaced by the arguments, in order. Surplus
/// placeholders stay, surplus arguments are ignored; placeholders in arguments are not replaced.
[[nodiscard]] inline std::string fillPlaceholders(std::string_view text,
                                                  std::initializer_list<std::string> arguments) {
    constexpr std::string_view integer = "%lld";
    constexpr std::string_view object = "%@";
    std::string result;
    for (const std::string& argument : arguments) {
        const std::size_t at = std::min(text.find(integer), text.find(object));
        if (at == std::string_view::npos) {
            break;
        }
        result.append(text.substr(0, at)).append(argument);
        text.remove_prefix(at + (text.substr(at).starts_with(integer) ? integer : object).size());
    }
    return result.append(text);
}

} // namespace calmora
