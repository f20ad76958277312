#pragma once

#include <algorithm>
#include <string_view>

namespace calmora {

/// Calls `visit` with each word of a text, in which blanks and line ends stand between the words.
template <typename Visit>
constexpr void forEachWord(std::string_view words, Visit visit) {
    constexpr std::string_view gaps = " \n";
    while (!words.empty()) {
        words.remove_prefix(std::min(words.find_first_not_of(gaps), words.size()));
        const std::string_view word = words.substr(0, words.find_first_of(gaps));
        if (!word.empty()) {
            visit(word);
        }
        words.remove_prefix(word.size());
    }
}

/// Whether a text of words has this word. Letter case counts.
constexpr bool hasWord(std::string_view words, std::string_view word) {
    bool isFound = false;
    forEachWord(words, [&](std::string_view other) { isFound = isFound || other == word; });
    return isFound;
}

} // namespace calmora
