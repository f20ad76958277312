// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/KeyFile.h"

#include "support/TextHelpers.h"

#include <utility>

namespace calmora {

namespace {

constexpr std::string_view blanks = " \t\r";

char escaped(char letter) {
    switch (letter) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    default:
        return letter;
    }
}

} // namespace

void walkKeyFile(std::string_view text, const std::function<bool(const KeyFileLine&)>& visit) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    KeyFileLine current;
    bool isInGroup = false;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view line = trimmed(text.substr(0, end), blanks);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.empty() || line.front() == '#') {
            continue;
        }
        if (line.front() == '[') {
            // A broken heading also ends the previous group.
            isInGroup = line.back() == ']';
            current.group = isInGroup ? line.substr(1, line.size() - 2) : std::string_view();
            continue;
        }
        const std::size_t equals = line.find('=');
        if (!isInGroup || equals == std::string_view::npos || equals == 0) {
            continue;
        }
        current.key = trimmed(line.substr(0, equals), blanks);
        current.value = trimmed(line.substr(equals + 1), blanks);
        if (!visit(current)) {
            return;
        }
    }
}

std::string unescapedValue(std::string_view value) {
    std::string text;
    text.reserve(value.size());
    for (std::size_t at = 0; at < value.size(); ++at) {
        const bool isEscape = value[at] == '\\' && at + 1 < value.size();
        text += isEscape ? escaped(value[++at]) : value[at];
    }
    return text;
}

std::vector<std::string> splitList(std::string_view value) {
    std::vector<std::string> members;
    std::string member;
    const auto finish = [&] {
        if (!member.empty()) {
            members.push_back(std::exchange(member, {}));
        }
    };
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (value[at] == '\\' && at + 1 < value.size()) {
            member += escaped(value[++at]);
        } else if (value[at] == ';') {
            finish();
        } else {
            member += value[at];
        }
    }
    finish();
    return members;
}

} // namespace calmora
