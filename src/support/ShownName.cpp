// SPDX-License-Identifier: MIT
#include "support/ShownName.h"

#include <algorithm>
#include <array>

namespace calmora {

namespace {

constexpr std::size_t mostCharacters = 256;

/// A range of characters, both ends included.
struct Range {
    char32_t first;
    char32_t last;
};

template <std::size_t count>
bool isAmong(const std::array<Range, count>& ranges, char32_t point) {
    return std::ranges::any_of(
        ranges, [&](const Range& range) { return range.first <= point && point <= range.last; });
}

/// Blanks of all widths, and letters that look like blanks.
constexpr std::array blanks{
    Range{U' ', U' '},     Range{0xA0, 0xA0},     Range{0x1680, 0x1680}, Range{0x2000, 0x200A},
    Range{0x202F, 0x202F}, Range{0x205F, 0x205F}, Range{0x2800, 0x2800}, Range{0x3000, 0x3000},
    Range{0x3164, 0x3164}, Range{0xFFA0, 0xFFA0},
};

/// Direction controls and invisible characters: soft hyphens, zero-width blanks, notes, tags.
constexpr std::array dropped{
    Range{0xAD, 0xAD},     Range{0x61C, 0x61C},     Range{0x180E, 0x180E}, Range{0x200B, 0x200B},
    Range{0x200E, 0x200F}, Range{0x202A, 0x202E},   Range{0x2060, 0x206F}, Range{0xFEFF, 0xFEFF},
    Range{0xFFF9, 0xFFFB}, Range{0xE0000, 0xE007F},
};

/// Joiners and variation selectors, which change the character before them.
constexpr std::array joining{
    Range{0x200C, 0x200D},
    Range{0xFE00, 0xFE0F},
    Range{0xE0100, 0xE01EF},
};

} // namespace

Utf8Character firstCharacter(std::string_view text) {
    const auto byte = [&](std::size_t at) -> char32_t {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
    };
    const char32_t first = byte(0);
    if (first < 0x80) {
        return {first, 1, true};
    }
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    char32_t point = first & (0xFFU >> (length + 1));
    for (std::size_t at = 1; at < length; ++at) {
        if ((byte(at) & 0xC0U) != 0x80U) {
            return {};
        }
        point = (point << 6U) | (byte(at) & 0x3FU);
    }
    constexpr std::array<char32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = point >= 0xD800 && point <= 0xDFFF;
    const bool isValid = first >= 0xC2 && first <= 0xF4 && point >= least.at(length) &&
                         point <= 0x10FFFF && !isSurrogate;
    return isValid ? Utf8Character{point, length, true} : Utf8Character{};
}

bool isControl(char32_t point) {
    return point < 0x20 || (point >= 0x7F && point < 0xA0) || point == 0x2028 || point == 0x2029;
}

std::string shownName(std::string_view name) {
    std::string shown;
    std::size_t characters = 0;
    bool isBlankDue = false;
    while (!name.empty()) {
        const Utf8Character next = firstCharacter(name);
        const std::string_view bytes = next.isValid ? name.substr(0, next.length) : "\uFFFD";
        name.remove_prefix(next.length);
        if (isAmong(dropped, next.point) || (shown.empty() && isAmong(joining, next.point))) {
            continue;
        }
        if (isControl(next.point) || isAmong(blanks, next.point)) {
            isBlankDue = !shown.empty();
            continue;
        }
        characters += isBlankDue ? 2 : 1;
        if (characters > mostCharacters) {
            return shown + "…";
        }
        shown.append(isBlankDue ? " " : "").append(bytes);
        isBlankDue = false;
    }
    return shown;
}

} // namespace calmora
