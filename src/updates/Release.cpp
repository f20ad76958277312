// SPDX-License-Identifier: MIT
#include "updates/Release.h"

#include <algorithm>
#include <cstddef>

namespace calmora {
namespace {

constexpr std::size_t longestVersion = 64;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// The parts of a version, compared in this order.
struct Parts {
    std::string_view epoch;
    std::string_view upstream;
    std::string_view revision;
};

Parts split(std::string_view version) {
    Parts parts;
    if (const std::size_t colon = version.find(':'); colon != std::string_view::npos) {
        parts.epoch = version.substr(0, colon);
        version.remove_prefix(colon + 1);
    }
    const std::size_t hyphen = std::min(version.rfind('-'), version.size());
    parts.upstream = version.substr(0, hyphen);
    parts.revision = version.substr(std::min(hyphen + 1, version.size()));
    return parts;
}

/// Sort order of the first character of a run without digits; 0 at the end of the run.
int rank(std::string_view text) {
    if (text.empty() || isDigit(text.front())) {
        return 0;
    }
    const char c = text.front();
    if (c == '~') {
        return -1;
    }
    constexpr int behindLetters = 0x100;
    return isLetter(c) ? c : c + behindLetters;
}

/// Removes the number at the front of a text; returns it without leading zeros.
std::string_view takeNumber(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
    const auto length = static_cast<std::size_t>(
        std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
    const std::string_view number = text.substr(0, length);
    text.remove_prefix(length);
    return number;
}

std::weak_ordering compareParts(std::string_view a, std::string_view b) {
    while (!a.empty() || !b.empty()) {
        while (rank(a) != 0 || rank(b) != 0) {
            if (rank(a) != rank(b)) {
                return rank(a) <=> rank(b);
            }
            a.remove_prefix(1);
            b.remove_prefix(1);
        }
        const std::string_view first = takeNumber(a);
        const std::string_view second = takeNumber(b);
        if (first.size() != second.size()) {
            return first.size() <=> second.size();
        }
        if (first != second) {
            return first <=> second;
        }
    }
    return std::weak_ordering::equivalent;
}

} // namespace

bool isVersion(std::string_view text) {
    const auto isAllowed = [](char c) {
        return isDigit(c) || isLetter(c) ||
               std::string_view(".+-~_^:").find(c) != std::string_view::npos;
    };
    const Parts parts = split(text);
    return text.size() <= longestVersion && std::all_of(text.begin(), text.end(), isAllowed) &&
           std::all_of(parts.epoch.begin(), parts.epoch.end(), isDigit) && text.find(':') != 0 &&
           std::any_of(parts.upstream.begin(), parts.upstream.end(), isDigit);
}

std::weak_ordering compareVersions(std::string_view a, std::string_view b) {
    const Parts first = split(a);
    const Parts second = split(b);
    for (const auto part : {&Parts::epoch, &Parts::upstream, &Parts::revision}) {
        if (const auto order = compareParts(first.*part, second.*part); order != 0) {
            return order;
        }
    }
    return std::weak_ordering::equivalent;
}

const Release* newestRelease(std::span<const Release> releases) {
    const Release* newest = nullptr;
    for (const Release& release : releases) {
        if (release.isStable &&
            (!newest || compareVersions(release.version, newest->version) > 0)) {
            newest = &release;
        }
    }
    return newest;
}

} // namespace calmora
