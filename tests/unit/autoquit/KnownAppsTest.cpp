#include "autoquit/catalogue/KnownApps.h"

#include "autoquit/catalogue/KnownAppTable.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace calmora {
namespace {

/// FNV-1a over a text and its end.
void mix(std::uint64_t& sum, std::string_view text) {
    for (const char letter : text) {
        sum = (sum ^ static_cast<unsigned char>(letter)) * 0x100000001b3;
    }
    sum *= 0x100000001b3;
}

TEST(KnownApps, TablesMatchTheirChecksum) {
    std::uint64_t sum = 0xcbf29ce484222325;
    for (const KnownAppEntry& entry : knownAppTable) {
        const KnownAppInfo listed{std::string(entry.bundleIdentifier),
                                  std::string(entry.displayName), entry.category,
                                  entry.idleBehavior};
        EXPECT_EQ(KnownApps::lookup(entry.bundleIdentifier), listed);
        mix(sum, entry.bundleIdentifier);
        mix(sum, entry.displayName);
        mix(sum, std::to_string(static_cast<int>(entry.category)));
        mix(sum, std::to_string(static_cast<int>(entry.idleBehavior)));
    }
    for (const std::string_view player : KnownApps::musicAppBundleIDs()) {
        mix(sum, player);
    }
    EXPECT_EQ(sum, 6283804721614749214U);
}

TEST(KnownApps, PrefersListedIdentifiersToVendorPrefixes) {
    using enum AppCategory;
    using enum IdleBehavior;
    for (const KnownAppInfo& expected : {
             KnownAppInfo{"com.adobe.Photoshop", "Adobe Photoshop", creative, cautious},
             KnownAppInfo{"com.jetbrains.fleet", "fleet", devTool, cautious},
             KnownAppInfo{"com.adobe.suite.Extra", "Extra", creative, cautious},
             KnownAppInfo{"com.adobe.", "", creative, cautious},
         }) {
        EXPECT_EQ(KnownApps::lookup(expected.bundleIdentifier), expected);
    }
    for (const char* unknown : {"com.apple.safari", "com.Adobe.Photoshop", "com.adobe", "",
                                "com.tidal.desktop", "com.apple.finder2"}) {
        EXPECT_FALSE(KnownApps::lookup(unknown)) << unknown;
    }
    EXPECT_FALSE(KnownApps::lookup(std::nullopt));
}

} // namespace
} // namespace calmora
