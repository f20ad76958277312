#include "updates/FeedAddress.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace calmora {
namespace {

constexpr std::size_t longestPage = 2048;

/// Whether a text is 127.*.*.*, written in full.
bool isLoopbackNumber(std::string_view text) {
    for (int part = 0; part < 4; ++part) {
        int value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc() || value < 0 || value > 255 || (part == 0 && value != 127)) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        if (part < 3) {
            if (!text.starts_with('.')) {
                return false;
            }
            text.remove_prefix(1);
        }
    }
    return text.empty();
}

} // namespace

bool isLoopback(std::string_view host) {
    return host == "localhost" || host == "::1" || isLoopbackNumber(host);
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
