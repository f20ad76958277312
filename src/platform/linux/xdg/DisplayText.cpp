#include "platform/linux/xdg/DisplayText.h"

#include <cstddef>

namespace calmora {

namespace {

/// Length of the valid UTF-8 sequence at the front of the text; 0 when there is none.
/// Source: Unicode, table 3-7.
std::size_t sequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t at) -> unsigned {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
    };
    const auto isTail = [&](std::size_t at) { return (byte(at) & 0xC0U) == 0x80U; };
    const unsigned first = byte(0);
    const unsigned second = byte(1);
    if (first < 0x80) {
        return 1;
    }
    if (first >= 0xC2 && first <= 0xDF && isTail(1)) {
        return 2;
    }
    if (first >= 0xE0 && first <= 0xEF && isTail(1) && isTail(2)) {
        const bool isOverlong = first == 0xE0 && second < 0xA0;
        const bool isSurrogate = first == 0xED && second > 0x9F;
        return isOverlong || isSurrogate ? 0 : 3;
    }
    if (first >= 0xF0 && first <= 0xF4 && isTail(1) && isTail(2) && isTail(3)) {
        const bool isOverlong = first == 0xF0 && second < 0x90;
        const bool isTooLarge = first == 0xF4 && second > 0x8F;
        return isOverlong || isTooLarge ? 0 : 4;
    }
    return 0;
}

bool isControl(std::string_view sequence) {
    const auto first = static_cast<unsigned char>(sequence.front());
    if (sequence.size() == 1) {
        return first < 0x20 || first == 0x7F;
    }
    if (sequence.size() == 2 && first == 0xC2) {
        return static_cast<unsigned char>(sequence[1]) < 0xA0; // C1 controls
    }
    return sequence == "\xE2\x80\xA8" || sequence == "\xE2\x80\xA9"; // line, paragraph separator
}

} // namespace

std::string displayLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length == 0) {
            line += "\xEF\xBF\xBD";
            text.remove_prefix(1);
            continue;
        }
        const std::string_view sequence = text.substr(0, length);
        line += isControl(sequence) ? std::string_view(" ") : sequence;
        text.remove_prefix(length);
    }
    const std::size_t start = line.find_first_not_of(' ');
    if (start == std::string::npos) {
        return {};
    }
    return line.substr(start, line.find_last_not_of(' ') - start + 1);
}

} // namespace calmora
