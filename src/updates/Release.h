#pragma once

#include "support/Subscription.h"

#include <functional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace calmora {

/// One version of the program, as its makers announce it.
struct Release {
    std::string version;
    /// What is new, as plain text in UTF-8; empty when nothing is told.
    std::string notes;
    /// A web page about it; empty when there is none.
    std::string page;
    /// Meant for everybody, not for testing.
    bool isStable = true;
};

/// Why the releases are not known.
enum class UpdateError {
    /// The list's address is none that may be used.
    address,
    /// The part of the program that reaches the network cannot be loaded.
    loader,
    unreachable,
    /// The server did not prove who it is.
    insecure,
    /// The server answered, but not with the list.
    refused,
    /// The list has moved to where it may not be read from.
    redirect,
    timeout,
    tooLarge,
    /// No list of releases, or a malformed or hostile one.
    unreadable,
    /// A release has a version that is none.
    version,
};

/// Every release that is known, in any order, or why none is.
using ReleaseList = std::variant<std::vector<Release>, UpdateError>;

/// The newest release that is meant for everybody; null when there is none.
[[nodiscard]] const Release* newestRelease(std::span<const Release> releases);

/// Where the releases are learned from.
class ReleaseSource {
  public:
    virtual ~ReleaseSource() = default;

    /// Gets the list and tells it once, from the main loop, unless the token ends before. `done`
    /// may end the token.
    [[nodiscard]] virtual Subscription fetch(std::function<void(const ReleaseList&)> done) = 0;
};

} // namespace calmora
