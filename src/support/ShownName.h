// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace calmora {

/// A character of a text in UTF-8, or an invalid byte.
struct Utf8Character {
    /// U+FFFD for an invalid byte.
    char32_t point = U'\uFFFD';
    /// In bytes; 1 for an invalid byte.
    std::size_t length = 1;
    bool isValid = false;
};

/// The first character of a text that is not empty.
/// Source: Unicode, table 3-7.
[[nodiscard]] Utf8Character firstCharacter(std::string_view text);

/// Whether it is a control character or separates lines or paragraphs.
[[nodiscard]] bool isControl(char32_t point);

/// Makes an untrusted name (of an application, a window, a file) safe to show: one line of valid
/// UTF-8 with blanks folded, without direction controls and invisible characters, and of at most
/// 256 characters. Empty if nothing visible is left. The result is plain text, not markup.
/// Different names may become equal: not for identifiers. Source: Unicode Standard Annex 9,
/// "Directional Formatting Characters".
[[nodiscard]] std::string shownName(std::string_view name);

} // namespace calmora
