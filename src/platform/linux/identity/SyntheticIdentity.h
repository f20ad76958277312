// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/identity/ApplicationIdentity.h"

#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// The identity of a program without a desktop entry, derived from its file. The identifier
/// survives restarts if the facts identify the program; otherwise it includes the process, since
/// programs with the same identifier would be quit together. Pure.
[[nodiscard]] ApplicationIdentity syntheticIdentity(const ApplicationFacts& facts);

/// An untrusted text as one line of valid UTF-8: broken UTF-8 becomes U+FFFD, control characters
/// become blanks, and both ends are trimmed. Keeps everything else, so that different texts remain
/// different identifiers; for a text to show see shownName().
[[nodiscard]] std::string displayLine(std::string_view text);

/// The first window class that is not generic, fit to show; empty if none.
[[nodiscard]] std::string tellingClass(const std::vector<TopLevelWindow>& windows);

/// Whether a toolkit uses this class or instance for all its programs.
[[nodiscard]] bool isGenericClass(std::string_view word);

/// A readable last part of an identifier, without dots. Never empty.
[[nodiscard]] std::string identifierWord(std::string_view text);

} // namespace calmora
