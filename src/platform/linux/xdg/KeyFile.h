#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// One "key=value" line. The views point into the text that was walked.
struct KeyFileLine {
    std::string_view group;
    std::string_view key;
    /// As it stands in the file, escapes included, without white space at its start.
    std::string_view value;
};

/// Walks the lines of a freedesktop key file in order until `visit` returns false. Comments,
/// broken lines and lines before the first group are skipped.
/// Source: freedesktop Desktop Entry Specification, basic format.
void walkKeyFile(std::string_view text, const std::function<bool(const KeyFileLine&)>& visit);

/// A value of type string with its escapes resolved (\s \n \t \r \\).
[[nodiscard]] std::string unescapedValue(std::string_view value);

/// A list value split at ';', with "\;" for a semicolon; empty members are dropped.
[[nodiscard]] std::vector<std::string> splitList(std::string_view value);

} // namespace calmora
