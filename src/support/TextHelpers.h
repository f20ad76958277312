// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace calmora {

/// What stands behind the last slash.
[[nodiscard]] inline std::string_view baseName(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

/// What stands in front of it, the slash included; empty where there is none.
[[nodiscard]] inline std::string_view folderPart(std::string_view path) {
    return path.substr(0, path.rfind('/') + 1);
}

/// ASCII letters in lower case, all else as it is.
[[nodiscard]] inline std::string loweredAscii(std::string_view text) {
    std::string lower(text);
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter - 'A' + 'a');
        }
    }
    return lower;
}

/// The text without these characters at both ends.
[[nodiscard]] inline std::string_view trimmed(std::string_view text, std::string_view blanks) {
    const std::size_t start = text.find_first_not_of(blanks);
    return start == std::string_view::npos
               ? std::string_view()
               : text.substr(start, text.find_last_not_of(blanks) - start + 1);
}

/// Calls `visit` with each piece between separators, empty ones included; nothing behind a
/// separator at the end is no piece.
template <typename Visit>
void forEachPiece(std::string_view text, char separator, Visit visit) {
    while (!text.empty()) {
        const std::size_t end = text.find(separator);
        visit(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

} // namespace calmora
