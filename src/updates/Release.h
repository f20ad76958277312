// SPDX-License-Identifier: MIT
#pragma once

#include "support/Subscription.h"

#include <compare>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace calmora {

/// One published version of the program.
struct Release {
    std::string version;
    /// What is new, as plain text in UTF-8; may be empty.
    std::string notes;
    /// A web page about it; empty for none.
    std::string page;
    /// Not a test version.
    bool isStable = true;
};

/// Why the releases could not be read.
enum class UpdateError {
    /// The list's address may not be used.
    address,
    /// The program that reaches the network cannot be started.
    loader,
    unreachable,
    /// The server's certificate is not trusted.
    insecure,
    /// The server answered with an error.
    refused,
    /// The server redirects to an address that may not be used.
    redirect,
    timeout,
    tooLarge,
    /// No list of releases, or a malformed or hostile one.
    unreadable,
    /// A release has an invalid version.
    version,
};

/// All known releases in any order, or why they could not be read.
using ReleaseList = std::variant<std::vector<Release>, UpdateError>;

/// Whether a text is a valid version: at most 64 of the characters that deb-version(7) allows, "_"
/// and "^", at least one digit, and only digits before a colon.
[[nodiscard]] bool isVersion(std::string_view text);

/// Compares versions as AppStream does: runs of digits as numbers, letters before other characters,
/// "~" before everything, even the end. Source: deb-version(7), "Sorting algorithm".
[[nodiscard]] std::weak_ordering compareVersions(std::string_view a, std::string_view b);

/// The newest stable release; null if there is none.
[[nodiscard]] const Release* newestRelease(std::span<const Release> releases);

/// Where releases come from.
class ReleaseSource {
  public:
    virtual ~ReleaseSource() = default;

    /// Fetches the list and calls `done` once, from the main loop, unless the token ends before.
    /// `done` may end the token.
    [[nodiscard]] virtual Subscription fetch(std::function<void(const ReleaseList&)> done) = 0;
};

} // namespace calmora
