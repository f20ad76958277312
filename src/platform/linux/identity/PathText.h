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

} // namespace calmora
