#include "platform/linux/identity/KnownIds.h"

#include "autoquit/catalogue/KnownApps.h"
#include "autoquit/catalogue/LinuxAnnex.h"

#include <gtest/gtest.h>

#include <set>

namespace calmora {
namespace {

TEST(KnownIds, PointIntoTheCatalogueOrTheMusicList) {
    // The vendor's prefix would answer for a misspelt identifier as well.
    const std::set<std::string_view> jetBrains = {
        "com.jetbrains.intellij", "com.jetbrains.WebStorm", "com.jetbrains.pycharm",
        "com.jetbrains.datagrip", "com.jetbrains.CLion",    "com.jetbrains.rider",
        "com.jetbrains.goland",   "com.jetbrains.rubymine", "com.jetbrains.PhpStorm",
        "com.jetbrains.toolbox"};
    std::set<std::string_view> ids;
    for (const auto& [desktopId, wellKnown] : knownIds()) {
        EXPECT_TRUE(ids.insert(desktopId).second) << desktopId;
        const bool isListed = wellKnown.starts_with("com.jetbrains.")
                                  ? jetBrains.contains(wellKnown)
                                  : KnownApps::lookup(wellKnown).has_value();
        EXPECT_TRUE(isListed || KnownApps::musicAppBundleIDs().contains(wellKnown))
            << desktopId << " -> " << wellKnown;
        EXPECT_FALSE(annexBehavior(desktopId)) << desktopId << " never comes by this name";
    }
}

TEST(KnownIds, MapExactlyAndLeaveTheRestAlone) {
    EXPECT_EQ(wellKnownIdentifier("spotify_spotify"), "com.spotify.client");
    EXPECT_EQ(wellKnownIdentifier("jetbrains-clion-0a1b2c3d-1111-2222-3333-444455556666"),
              "com.jetbrains.CLion");
    for (const char* id : {"Firefox-esr", "galculator", "", "org.mozilla.firefox",
                           "jetbrains-clion-0a1b2c3d-1111-2222-3333-44445555666x"}) {
        EXPECT_EQ(wellKnownIdentifier(id), id);
    }
}

} // namespace
} // namespace calmora
