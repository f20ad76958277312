#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace calmora {

/// A character of a text in UTF-8, or a byte of it that belongs to none.
struct Utf8Character {
    /// U+FFFD for a byte that belongs to no character.
    char32_t point = U'\uFFFD';
    /// In bytes; 1 for a byte that belongs to no character.
    std::size_t length = 1;
    bool isValid = false;
};

/// The first character of a text that is not empty.
/// Source: Unicode, table 3-7.
[[nodiscard]] Utf8Character firstCharacter(std::string_view text);

/// Control characters and the separators of lines and paragraphs.
[[nodiscard]] bool isControl(char32_t point);

/// A name from outside (an application's, a window's, a file's) made fit to stand in a text of
/// ours: one line of valid UTF-8, blanks folded, without the controls that turn the direction of
/// what stands around it and without what cannot be seen, and cut behind 256 characters. Empty
/// when there is nothing to see. It is still no markup and must not be shown as such. Different
/// names may become the same one: not for identifiers.
/// Source: Unicode Standard Annex 9, "Directional Formatting Characters".
[[nodiscard]] std::string shownName(std::string_view name);

} // namespace calmora
