#pragma once

#include <compare>
#include <string_view>

namespace calmora {

/// Whether a text is a valid version: at most 64 of the characters that deb-version(7) allows, "_"
/// and "^", at least one digit, and only digits before a colon.
[[nodiscard]] bool isVersion(std::string_view text);

/// Compares versions as AppStream does: runs of digits as numbers, letters before other characters,
/// "~" before everything, even the end. Source: deb-version(7), "Sorting algorithm".
[[nodiscard]] std::weak_ordering compareVersions(std::string_view a, std::string_view b);

} // namespace calmora
