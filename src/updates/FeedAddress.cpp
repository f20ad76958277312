// SPDX-License-Identifier: MIT
#include "updates/FeedAddress.h"

#include <algorithm>
#include <cstddef>

#include <arpa/inet.h>

namespace calmora {
namespace {

constexpr std::size_t longestPage = 2048;

/// Whether a text is 127.*.*.*, written in full.
bool isLoopbackNumber(const std::string& text) {
    in_addr address{};
    return inet_pton(AF_INET, text.c_str(), &address) == 1 && ntohl(address.s_addr) >> 24U == 127U;
}

} // namespace

bool isLoopback(std::string_view host) {
    return host == "localhost" || host == "::1" || isLoopbackNumber(std::string(host));
}

bool mayFetch(const FeedAddress& address) {
    if (address.scheme == "file") {
        return address.host.empty();
    }
    return (address.scheme == "https" && !address.host.empty()) ||
           (address.scheme == "http" && isLoopback(address.host));
}

bool mayFollow(const FeedAddress& from, const FeedAddress& target) {
    return target.scheme == from.scheme && target.host == from.host && mayFetch(target);
}

bool isWebPage(std::string_view address) {
    const bool isPlain = std::all_of(address.begin(), address.end(), [](char c) {
        return c > ' ' && c < '\x7f' &&
               std::string_view("\"<>\\^`{|}").find(c) == std::string_view::npos;
    });
    if (!isPlain || address.size() > longestPage) {
        return false;
    }
    for (const std::string_view scheme : {"https://", "http://"}) {
        if (address.starts_with(scheme)) {
            const std::string_view rest = address.substr(scheme.size());
            const std::string_view host = rest.substr(0, rest.find_first_of("/?#"));
            return !host.empty() && !host.starts_with(':') &&
                   host.find('@') == std::string_view::npos;
        }
    }
    return false;
}

} // namespace calmora
