#include "platform/linux/xdg/DisplayText.h"

#include "support/ShownName.h"
#include "support/TextHelpers.h"

namespace calmora {

std::string displayLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    while (!text.empty()) {
        const Utf8Character next = firstCharacter(text);
        if (!next.isValid) {
            line += "\uFFFD";
        } else {
            line += isControl(next.point) ? std::string_view(" ") : text.substr(0, next.length);
        }
        text.remove_prefix(next.length);
    }
    return std::string(trimmed(line, " "));
}

} // namespace calmora
