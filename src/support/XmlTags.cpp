// SPDX-License-Identifier: MIT
#include "support/XmlTags.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace calmora {
namespace {

constexpr std::size_t longestTag = 2048;

/// Length of the tag, instruction or section at the start of `xml`; absent if it is too long, does
/// not end, or is a declaration such as a document type.
std::optional<std::size_t> markupLength(std::string_view xml) {
    const auto upTo = [xml](std::string_view end) {
        const std::size_t at = xml.find(end);
        return at == std::string_view::npos ? std::nullopt : std::optional(at + end.size());
    };
    if (xml.starts_with("<!--")) {
        return upTo("-->");
    }
    if (xml.starts_with("<![CDATA[")) {
        return upTo("]]>");
    }
    if (xml.starts_with("<!")) {
        return std::nullopt;
    }
    char quote = 0;
    for (std::size_t at = 1; at < std::min(xml.size(), longestTag); ++at) {
        const char c = xml[at];
        if (c == '>' && quote == 0) {
            return at + 1;
        }
        if (c == quote) {
            quote = 0;
        } else if (quote == 0 && (c == '"' || c == '\'')) {
            quote = c;
        }
    }
    return std::nullopt;
}

} // namespace

bool hasShortTags(std::string_view xml) {
    for (std::size_t at = xml.find('<'); at != std::string_view::npos; at = xml.find('<', at)) {
        const auto length = markupLength(xml.substr(at));
        if (!length) {
            return false;
        }
        at += *length;
    }
    return true;
}

} // namespace calmora
