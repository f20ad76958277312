#pragma once

#include <string>
#include <string_view>

namespace calmora {

/// What of an address decides whether it may be read; both in lower case.
struct FeedAddress {
    std::string scheme;
    /// A name or a number, which has no brackets; empty for a file of this machine.
    std::string host;
};

/// The largest list of releases, in bytes.
inline constexpr int largestFeed = 1024 * 1024;

/// Whether a host is this machine: "localhost" or a loopback number (RFC 1122, RFC 4291).
[[nodiscard]] bool isLoopback(std::string_view host);

/// Whether a list of releases may be read from an address: by https, from a file of this machine,
/// and by http, which anybody on the way can change, from this machine alone.
[[nodiscard]] bool mayFetch(const FeedAddress& address);

/// Whether a server may send the program on to `target`: within its host, by the same scheme.
[[nodiscard]] bool mayFollow(const FeedAddress& from, const FeedAddress& target);

/// Whether a text is the address of a web page, which a browser can be handed: http or https with
/// a host, not absurdly long, nothing in it that an address does not contain.
[[nodiscard]] bool isWebPage(std::string_view address);

} // namespace calmora
