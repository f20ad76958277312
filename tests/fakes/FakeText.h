#pragma once

#include "platform/Text.h"

#include <algorithm>

namespace calmora {

/// Text rules for ASCII letters, in every locale.
class FakeText final : public Text {
  public:
    std::weak_ordering compare(std::string_view a, std::string_view b) const override {
        return folded(a) <=> folded(b);
    }

    bool contains(std::string_view text, std::string_view part) const override {
        return folded(text).find(folded(part)) != std::string::npos;
    }

    std::string capitalized(std::string_view text) const override {
        std::string result = folded(text);
        bool startsWord = true;
        for (char& c : result) {
            const bool isLetter = c >= 'a' && c <= 'z';
            c = isLetter && startsWord ? static_cast<char>(c - 'a' + 'A') : c;
            startsWord = !isLetter;
        }
        return result;
    }

  private:
    static std::string folded(std::string_view text) {
        std::string result(text);
        std::ranges::transform(result, result.begin(), [](char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        });
        return result;
    }
};

} // namespace calmora
