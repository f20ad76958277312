#include "settings/AppSettings.h"

#include "fakes/FakeLoginItem.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeUserDefaults.h"
#include "settings/OpenAtLogin.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

using Strings = std::vector<std::string>;
using Stored = std::map<std::string, DefaultsValue>;
using namespace std::string_literals;

const Stored initial{{"openAtLogin", false},
                     {"neverQuitMusicApps", true},
                     {"deselectAppsByDefault", false},
                     {"includeFinderWindows", false},
                     {"sortOrder", "alphabetical"s},
                     {"resourceDisplay", "cpuOnly"s},
                     {"defaultQuitMode", "normal"s},
                     {"viewBackgroundApps", false},
                     {"groupBackgroundInstances", true},
                     {"autoQuitEnabled", false},
                     {"autoQuitMinutes", std::int64_t{30}},
                     {"playSounds", false},
                     {"neverQuitApps", Strings{}}};

const Stored changed{{"openAtLogin", true},
                     {"neverQuitMusicApps", false},
                     {"deselectAppsByDefault", true},
                     {"includeFinderWindows", true},
                     {"sortOrder", "memoryUsage"s},
                     {"resourceDisplay", "none"s},
                     {"defaultQuitMode", "force"s},
                     {"viewBackgroundApps", true},
                     {"groupBackgroundInstances", false},
                     {"autoQuitEnabled", true},
                     {"autoQuitMinutes", std::int64_t{-45}},
                     {"playSounds", true},
                     {"neverQuitApps", Strings{"a", "b"}}};

/// What fresh settings store when they get the values of `from`.
Stored stored(const AppSettings& from) {
    FakeUserDefaults defaults;
    AppSettings to(defaults);
    to.openAtLogin.set(from.openAtLogin());
    to.neverQuitMusicApps.set(from.neverQuitMusicApps());
    to.deselectAppsByDefault.set(from.deselectAppsByDefault());
    to.includeFinderWindows.set(from.includeFinderWindows());
    to.sortOrder.set(from.sortOrder());
    to.resourceDisplay.set(from.resourceDisplay());
    to.defaultQuitMode.set(from.defaultQuitMode());
    to.viewBackgroundApps.set(from.viewBackgroundApps());
    to.groupBackgroundInstances.set(from.groupBackgroundInstances());
    to.autoQuitEnabled.set(from.autoQuitEnabled());
    to.autoQuitMinutes.set(from.autoQuitMinutes());
    to.playSounds.set(from.playSounds());
    to.neverQuitApps.set(from.neverQuitApps());
    return defaults.stored;
}

TEST(AppSettings, ReadStoreAndResetEveryPreference) {
    FakeUserDefaults defaults;
    EXPECT_EQ(stored(AppSettings(defaults)), initial);
    EXPECT_EQ(defaults.registered, initial);
    EXPECT_TRUE(defaults.writes.empty());

    defaults.stored = changed;
    AppSettings settings(defaults);
    EXPECT_EQ(stored(settings), changed);
    std::size_t notices = 0;
    const Subscription any = settings.observeAny([&] { ++notices; });
    settings.resetToDefaults();
    EXPECT_EQ(defaults.stored, initial);
    EXPECT_EQ(notices, initial.size());
}

TEST(AppSettings, ReadInvalidValuesAsTheDefault) {
    FakeUserDefaults defaults;
    const Stored foreign{{"neverQuitMusicApps", "no"s},
                         {"sortOrder", "cpu"s},
                         {"autoQuitMinutes", "15"s},
                         {"neverQuitApps", "a"s}};
    defaults.stored = foreign;
    EXPECT_EQ(stored(AppSettings(defaults)), initial);
    EXPECT_EQ(defaults.stored, foreign);
}

TEST(AppSettings, PersistEveryWriteThenNotifyOfChanges) {
    FakeUserDefaults defaults;
    defaults.stored = {{"neverQuitApps", Strings{"b", "a", "b"}}};
    AppSettings settings(defaults);
    std::vector<DefaultsValue> heard;
    const Subscription minutes = settings.autoQuitMinutes.observe(
        [&] { heard.push_back(defaults.stored.at("autoQuitMinutes")); });
    const Subscription list = settings.neverQuitApps.observe(
        [&] { heard.push_back(defaults.stored.at("neverQuitApps")); });

    settings.autoQuitMinutes.set(30);
    settings.playSounds.set(true);
    EXPECT_EQ(defaults.writes, (Strings{"autoQuitMinutes", "playSounds"}));
    EXPECT_TRUE(heard.empty());
    settings.autoQuitMinutes.set(45);
    settings.addToNeverQuit("a");
    settings.addToNeverQuit("c");
    settings.removeFromNeverQuit("absent");
    settings.removeFromNeverQuit("a");
    EXPECT_EQ(heard, (std::vector<DefaultsValue>{std::int64_t{45}, Strings{"a", "b"},
                                                 Strings{"a", "b", "c"}, Strings{"a", "b", "c"},
                                                 Strings{"b", "c"}}));
}

TEST(OpenAtLogin, AppliesThePreferenceAndResetsItAfterAFailure) {
    FakePlatform machine;
    AppSettings settings(machine.defaults);
    FakeLoginItem item;
    item.enabled = true;
    {
        const OpenAtLogin handler(settings, item);
        EXPECT_TRUE(settings.openAtLogin()) << "changed elsewhere";
        EXPECT_TRUE(item.requests.empty()) << "not a change to apply";
        settings.openAtLogin.set(false);
        settings.openAtLogin.set(true);
        settings.resetToDefaults();
        EXPECT_EQ(item.requests, (std::vector<bool>{false, true, false}));

        item.isRefusing = true;
        item.requests.clear();
        settings.openAtLogin.set(true);
        EXPECT_FALSE(settings.openAtLogin());
        EXPECT_EQ(item.requests, std::vector<bool>{true}) << "the reset is not applied";
        settings.openAtLogin.set(true);
        EXPECT_EQ(item.requests.size(), 2U) << "the next change is applied";
    }
}

} // namespace
} // namespace calmora
