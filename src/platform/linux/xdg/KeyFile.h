// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// One "key=value" line. The views point into the parsed text.
struct KeyFileLine {
    std::string_view group;
    std::string_view key;
    /// As written, with escapes, without leading white space.
    std::string_view value;
};

/// Calls `visit` for the lines of a freedesktop key file in order until it returns false. Skips
/// comments, broken lines and lines before the first group.
/// Source: freedesktop Desktop Entry Specification, basic format.
void walkKeyFile(std::string_view text, const std::function<bool(const KeyFileLine&)>& visit);

/// A string value with its escapes (\s \n \t \r \\) resolved.
[[nodiscard]] std::string unescapedValue(std::string_view value);

/// A list value split at ';' ("\;" is a semicolon), without empty members.
[[nodiscard]] std::vector<std::string> splitList(std::string_view value);

} // namespace calmora
