#include "autoquit/KnownApps.h"

#include "autoquit/KnownAppTable.h"

#include <gtest/gtest.h>

#include <map>

namespace calmora {
namespace {

TEST(KnownApps, HasItsEntriesByCategoryAndBehavior) {
    std::map<std::string_view, int> counts;
    for (const KnownAppEntry& entry : knownAppTable) {
        ++counts[rawValue(entry.category)];
        ++counts[rawValue(entry.idleBehavior)];
        const auto found = KnownApps::lookup(entry.bundleIdentifier);
        ASSERT_TRUE(found) << entry.bundleIdentifier;
        EXPECT_EQ(found->bundleIdentifier, entry.bundleIdentifier);
        EXPECT_EQ(found->displayName, entry.displayName);
    }
    const std::map<std::string_view, int> expected{
        {"safeToQuit", 62}, {"cautious", 50},    {"neverQuit", 35},     {"browser", 11},
        {"creative", 28},   {"devTool", 29},     {"communication", 14}, {"media", 11},
        {"office", 18},     {"cloudStorage", 4}, {"systemUtility", 16}, {"security", 3},
        {"menuBarApp", 6},  {"utility", 5},      {"gaming", 2},
    };
    EXPECT_EQ(counts, expected);
}

TEST(KnownApps, FindsListedIdentifiersBeforeVendors) {
    struct Case {
        std::optional<std::string_view> identifier;
        std::string_view name;
        AppCategory category;
        IdleBehavior behavior;
    };

    using enum AppCategory;
    using enum IdleBehavior;
    for (const Case& c : {
             Case{"com.apple.finder", "Finder", systemUtility, neverQuit},
             Case{"com.adobe.Photoshop", "Adobe Photoshop", creative, cautious},
             Case{"com.adobe.xd", "Adobe XD", creative, safeToQuit},
             Case{"com.jetbrains.datagrip", "DataGrip", devTool, safeToQuit},
             Case{"com.jetbrains.fleet", "fleet", devTool, cautious},
             Case{"com.seriflabs.affinityphoto", "affinityphoto", creative, cautious},
             Case{"com.adobe.suite.Extra", "Extra", creative, cautious},
             Case{"com.adobe.", "", creative, cautious},
         }) {
        const KnownAppInfo expected{std::string(*c.identifier), std::string(c.name), c.category,
                                    c.behavior};
        EXPECT_EQ(KnownApps::lookup(c.identifier), expected) << *c.identifier;
    }
    for (const char* unknown : {"com.apple.safari", "com.Adobe.Photoshop", "com.adobe", "",
                                "com.tidal.desktop", "com.apple.finder2"}) {
        EXPECT_FALSE(KnownApps::lookup(unknown)) << unknown;
    }
    EXPECT_FALSE(KnownApps::lookup(std::nullopt));
}

} // namespace
} // namespace calmora
