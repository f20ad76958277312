#pragma once

#include <compare>
#include <string_view>

namespace calmora {

/// Whether a text can be a version: at most 64 of the characters that deb-version(7) allows, and
/// "_" and "^"; a digit among them; before a colon digits only.
[[nodiscard]] bool isVersion(std::string_view text);

/// Which of two versions is the newer, as AppStream compares them: runs of digits as numbers, of
/// the rest letters before other characters, "~" before everything, even the end.
/// Source: deb-version(7), "Sorting algorithm".
[[nodiscard]] std::weak_ordering compareVersions(std::string_view a, std::string_view b);

} // namespace calmora
