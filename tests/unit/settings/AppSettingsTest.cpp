// SPDX-License-Identifier: MIT
#include "settings/AppSettings.h"

#include "fakes/FakeLoginItem.h"
#include "fakes/FakePlatform.h"
#include "settings/OpenAtLogin.h"

namespace calmora {
namespace {

using Strings = std::vector<std::string>;
using Stored = std::map<std::string, DefaultsValue>;
using namespace std::string_literals;

struct Row {
    const char* key;
    DefaultsValue initial;
    DefaultsValue changed;
};

const Row preferences[] = {{"openAtLogin", false, true},
                           {"neverQuitMusicApps", true, false},
                           {"deselectAppsByDefault", false, true},
                           {"includeFinderWindows", false, true},
                           {"sortOrder", "alphabetical"s, "memoryUsage"s},
                           {"resourceDisplay", "cpuOnly"s, "none"s},
                           {"defaultQuitMode", "normal"s, "force"s},
                           {"viewBackgroundApps", false, true},
                           {"groupBackgroundInstances", true, false},
                           {"autoQuitEnabled", false, true},
                           {"autoQuitMinutes", std::int64_t{30}, std::int64_t{-45}},
                           {"playSounds", false, true},
                           {"neverQuitApps", Strings{}, Strings{"a", "b"}}};

Stored column(DefaultsValue Row::* value) {
    Stored all;
    for (const Row& row : preferences) {
        all[row.key] = row.*value;
    }
    return all;
}

const Stored initial = column(&Row::initial);
const Stored changed = column(&Row::changed);

/// What settings over these values store when each preference gets its own value again.
Stored rewritten(const Stored& from) {
    FakeUserDefaults defaults;
    defaults.stored = from;
    AppSettings s(defaults);
    defaults.stored.clear();
    const auto rewrite = [](auto&... all) { (all.set(all()), ...); };
    rewrite(s.openAtLogin, s.neverQuitMusicApps, s.deselectAppsByDefault, s.includeFinderWindows,
            s.sortOrder, s.resourceDisplay, s.defaultQuitMode, s.viewBackgroundApps,
            s.groupBackgroundInstances, s.autoQuitEnabled, s.autoQuitMinutes, s.playSounds,
            s.neverQuitApps);
    return defaults.stored;
}

TEST(AppSettings, ReadStoreAndResetEveryPreference) {
    EXPECT_EQ(rewritten({}), initial);
    EXPECT_EQ(rewritten(changed), changed);
    FakeUserDefaults defaults;
    defaults.stored = changed;
    AppSettings settings(defaults);
    EXPECT_EQ(defaults.registered, initial);
    EXPECT_TRUE(defaults.writes.empty());
    std::size_t notices = 0;
    const Subscription any = settings.observeAny([&] { ++notices; });
    settings.resetToDefaults();
    EXPECT_EQ(defaults.stored, initial);
    EXPECT_EQ(notices, initial.size());
}

TEST(AppSettings, ReadInvalidValuesAsTheDefault) {
    EXPECT_EQ(rewritten({{"neverQuitMusicApps", "no"s},
                         {"sortOrder", "cpu"s},
                         {"autoQuitMinutes", "15"s},
                         {"neverQuitApps", "a"s}}),
              initial);
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
