#include "settings/AppSettings.h"

#include "fakes/FakePlatform.h"
#include "settings/NeverQuitList.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

using Strings = std::vector<std::string>;

const std::map<std::string, DefaultsValue> initial{
    {"openAtLogin", false},
    {"neverQuitMusicApps", true},
    {"deselectAppsByDefault", false},
    {"includeFinderWindows", false},
    {"sortOrder", std::string("alphabetical")},
    {"resourceDisplay", std::string("cpuOnly")},
    {"defaultQuitMode", std::string("normal")},
    {"viewBackgroundApps", false},
    {"groupBackgroundInstances", true},
    {"autoQuitEnabled", false},
    {"autoQuitMinutes", std::int64_t{30}},
    {"playSounds", false},
    {"neverQuitApps", Strings{}},
};

TEST(AppSettings, AreRegisteredButNotWrittenAtFirst) {
    FakeUserDefaults defaults;
    const AppSettings settings(defaults);
    EXPECT_EQ(defaults.registered, initial);
    EXPECT_TRUE(defaults.writes.empty());
    EXPECT_TRUE(settings.neverQuitMusicApps());
    EXPECT_EQ(settings.autoQuitMinutes(), 30);
    EXPECT_FALSE(settings.openAtLogin() || settings.playSounds() || settings.autoQuitEnabled());
}

TEST(AppSettings, ReadWhatIsStoredAndMendWhatIsNot) {
    FakeUserDefaults defaults;
    defaults.stored = {{"openAtLogin", true},
                       {"neverQuitMusicApps", std::string("no")},
                       {"sortOrder", std::string("memoryUsage")},
                       {"resourceDisplay", std::string("Both")},
                       {"defaultQuitMode", std::string("Force")},
                       {"autoQuitMinutes", std::int64_t{-5}},
                       {"neverQuitApps", Strings{"b", "a", "b"}}};
    AppSettings settings(defaults);
    EXPECT_TRUE(settings.openAtLogin());
    EXPECT_TRUE(settings.neverQuitMusicApps());
    EXPECT_EQ(settings.sortOrder(), SortOrder::memoryUsage);
    EXPECT_EQ(settings.resourceDisplay(), ResourceDisplay::cpuOnly);
    EXPECT_EQ(settings.defaultQuitMode(), QuitMode::normal);
    EXPECT_EQ(settings.autoQuitMinutes(), -5);
    EXPECT_EQ(settings.neverQuitApps(), (std::set<std::string>{"a", "b"}));

    settings.setPlaySounds(true);
    EXPECT_EQ(defaults.stored.at("neverQuitApps"), DefaultsValue(Strings{"b", "a", "b"}));
    EXPECT_EQ(defaults.stored.at("defaultQuitMode"), DefaultsValue(std::string("Force")));
    settings.addToNeverQuit("a");
    EXPECT_EQ(defaults.stored.at("neverQuitApps"), DefaultsValue(Strings{"a", "b"}));
}

TEST(AppSettings, WriteEveryAssignmentAndTellOfChanges) {
    FakeUserDefaults defaults;
    AppSettings settings(defaults);
    std::vector<AppSettings::Property> told;
    int minutes = 0;
    const Subscription any =
        settings.observeAny([&](AppSettings::Property property) { told.push_back(property); });
    const Subscription one = settings.observe(AppSettings::Property::autoQuitMinutes, [&] {
        minutes = static_cast<int>(settings.autoQuitMinutes());
    });

    settings.setSortOrder(SortOrder::alphabetical);
    EXPECT_EQ(defaults.writes, Strings{"sortOrder"}) << "an equal value is persisted too";
    EXPECT_TRUE(told.empty());

    settings.setOpenAtLogin(true);
    settings.setNeverQuitMusicApps(false);
    settings.setDeselectAppsByDefault(true);
    settings.setIncludeFinderWindows(true);
    settings.setSortOrder(SortOrder::cpuUsage);
    settings.setResourceDisplay(ResourceDisplay::none);
    settings.setDefaultQuitMode(QuitMode::force);
    settings.setViewBackgroundApps(true);
    settings.setGroupBackgroundInstances(false);
    settings.setAutoQuitEnabled(true);
    EXPECT_EQ(minutes, 0);
    settings.setAutoQuitMinutes(45);
    settings.setPlaySounds(true);
    settings.setNeverQuitApps({"x"});
    EXPECT_EQ(minutes, 45);
    EXPECT_EQ(told.size(), initial.size());
    for (const auto& [key, value] : defaults.stored) {
        EXPECT_NE(value, initial.at(key)) << key;
    }
    EXPECT_EQ(AppSettings(defaults).resourceDisplay(), ResourceDisplay::none);
    EXPECT_EQ(AppSettings(defaults).defaultQuitMode(), QuitMode::force);

    told.clear();
    settings.addToNeverQuit("x");
    settings.removeFromNeverQuit("absent");
    EXPECT_EQ(told.size(), 2U) << "the list tells even when it stays the same";

    defaults.writes.clear();
    told.clear();
    settings.resetToDefaults();
    EXPECT_EQ(defaults.stored, initial);
    EXPECT_EQ(defaults.writes.size(), initial.size());
    EXPECT_EQ(told.size(), initial.size());
    EXPECT_TRUE(settings.neverQuitApps().empty());
}

TEST(NeverQuitList, ProtectsUnderStoredAndCanonicalIdentifiers) {
    FakePlatform machine;
    machine.workspace.canonicalIdentifiers = {{"firefox-esr", "org.mozilla.firefox"}};
    AppSettings settings(machine.defaults);
    settings.setNeverQuitApps({"firefox-esr", "org.mozilla.firefox", "xterm"});
    const NeverQuitList list(settings, machine.workspace);
    EXPECT_TRUE(list.contains("org.mozilla.firefox"));
    EXPECT_TRUE(list.contains("xterm"));
    EXPECT_FALSE(list.contains("XTerm"));
    EXPECT_EQ(list.storedFor("org.mozilla.firefox"),
              (Strings{"firefox-esr", "org.mozilla.firefox"}));
}

} // namespace
} // namespace calmora
