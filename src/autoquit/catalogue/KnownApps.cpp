// SPDX-License-Identifier: MIT
#include "autoquit/catalogue/KnownApps.h"

#include "autoquit/catalogue/KnownAppTable.h"

#include <algorithm>

namespace calmora {
namespace {

constexpr auto byIdentifier = [] {
    auto sorted = knownAppTable;
    std::ranges::sort(sorted, {}, &KnownAppEntry::bundleIdentifier);
    return sorted;
}();

static_assert(std::ranges::adjacent_find(byIdentifier, {}, &KnownAppEntry::bundleIdentifier) ==
                  byIdentifier.end(),
              "an identifier is listed twice");

} // namespace

std::optional<KnownAppInfo> KnownApps::lookup(std::optional<std::string_view> bundleID) {
    if (!bundleID) {
        return std::nullopt;
    }
    const auto listed =
        std::ranges::lower_bound(byIdentifier, *bundleID, {}, &KnownAppEntry::bundleIdentifier);
    if (listed != byIdentifier.end() && listed->bundleIdentifier == *bundleID) {
        return KnownAppInfo{std::string(listed->bundleIdentifier), std::string(listed->displayName),
                            listed->category, listed->idleBehavior};
    }
    for (const KnownAppPrefix& vendor : knownAppPrefixes) {
        if (bundleID->starts_with(vendor.prefix)) {
            const std::string_view name = bundleID->substr(bundleID->rfind('.') + 1);
            return KnownAppInfo{std::string(*bundleID), std::string(name), vendor.category,
                                vendor.idleBehavior};
        }
    }
    return std::nullopt;
}

const std::set<std::string_view>& KnownApps::musicAppBundleIDs() {
    static const std::set<std::string_view> players{
        "com.apple.Music",
        "com.spotify.client",
        "com.tidal.desktop",
        "com.amazon.music",
        "com.deezer.deezer-desktop",
        "com.pandora.desktop",
        "com.soundcloud.desktop",
        "tv.plex.plexamp",
        "com.roon.Roon",
        "app.audirvana.Audirvana-Origin",
    };
    return players;
}

} // namespace calmora
