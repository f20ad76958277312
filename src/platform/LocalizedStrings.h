#pragma once

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
[[nodiscard]] std::string fillPlaceholders(std::string_view text,
                                           std::initializer_list<std::string> arguments);

} // namespace calmora
