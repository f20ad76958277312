// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace calmora {

/// Text rules of the user's language. All strings are UTF-8; invalid sequences are tolerated.
class Text {
  public:
    virtual ~Text() = default;

    /// Order of two texts: case-insensitive, by the current locale's collation.
    [[nodiscard]] virtual std::weak_ordering compare(std::string_view a,
                                                     std::string_view b) const = 0;

    /// Whether `text` contains `part`, letter by letter without regard to case or by the current
    /// locale's rules for searching. Every text contains the empty one.
    [[nodiscard]] virtual bool contains(std::string_view text, std::string_view part) const = 0;

    /// The first letter of each word in upper case, the other letters in lower case.
    [[nodiscard]] virtual std::string capitalized(std::string_view text) const = 0;
};

} // namespace calmora
