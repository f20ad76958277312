#pragma once

#include "platform/linux/identity/ApplicationFacts.h"
#include "platform/linux/identity/ApplicationIdentity.h"

#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// The identity of a program that no desktop entry names, made from its file. The identifier
/// survives restarts where the facts tell the program from every other one; where they do not, the
/// process is part of it: two programs of one identifier would be quit together. Pure.
[[nodiscard]] ApplicationIdentity syntheticIdentity(const ApplicationFacts& facts);

/// An untrusted text as one line of valid UTF-8: broken UTF-8 becomes U+FFFD, control characters
/// become blanks, and both ends are trimmed. Keeps everything else, so that different texts remain
/// different identifiers; for a text to show see shownName().
[[nodiscard]] std::string displayLine(std::string_view text);

/// The class of the first window whose class tells something, fit to show; empty where none does.
[[nodiscard]] std::string tellingClass(const std::vector<TopLevelWindow>& windows);

/// Whether a window's class or instance is what a toolkit gives to all of its programs.
[[nodiscard]] bool isGenericClass(std::string_view word);

/// A readable word for the end of an identifier, where a dot would begin another one. Never empty.
[[nodiscard]] std::string identifierWord(std::string_view text);

} // namespace calmora
