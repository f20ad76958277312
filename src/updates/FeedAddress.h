// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace calmora {

/// The parts of an address that decide whether it may be read; in lower case.
struct FeedAddress {
    std::string scheme;
    /// A name or a number without brackets; empty for a local file.
    std::string host;
};

/// The largest accepted list of releases, in bytes.
inline constexpr int largestFeed = 1024 * 1024;

/// Whether a host is this machine: "localhost" or a loopback number (RFC 1122, RFC 4291).
[[nodiscard]] bool isLoopback(std::string_view host);

/// Whether a list of releases may be read from an address: by https, from a local file, or by http
/// from this machine only, because http can be changed on the way.
[[nodiscard]] bool mayFetch(const FeedAddress& address);

/// Whether a server may redirect to `target`: only to the same host and scheme.
[[nodiscard]] bool mayFollow(const FeedAddress& from, const FeedAddress& target);

/// Whether a text is the address of a web page that is safe to pass to a browser: http or https
/// with a host, of a sane length, with only the characters of an address.
[[nodiscard]] bool isWebPage(std::string_view address);

} // namespace calmora
