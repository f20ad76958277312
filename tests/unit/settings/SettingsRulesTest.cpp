#include "settings/NeverQuitList.h"
#include "settings/OpenAtLogin.h"

#include "fakes/FakeLoginItem.h"
#include "fakes/FakePlatform.h"
#include "settings/AppSettings.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

TEST(NeverQuitEditing, NamesAndSortsApplicationsThatAreNotRunning) {
    FakePlatform machine;
    machine.workspace.installed["org.gnome.Calculator"] = {"Taschenrechner", Image{"calc"}, {}};
    machine.workspace.installed["com.jetbrains.fleet"] = {"Fleet IDE", std::nullopt, {}};
    AppSettings settings(machine.defaults);
    settings.neverQuitApps.set({"org.gnome.Calculator", "com.jetbrains.fleet", "zebra", "ant"});
    const std::vector<ProtectedApp> expected{{"ant", "ant"},
                                             {"com.jetbrains.fleet", "fleet"},
                                             {"org.gnome.Calculator", "Taschenrechner"},
                                             {"zebra", "zebra"}};
    EXPECT_EQ(protectedApps(settings, machine.platform()), expected);
}

TEST(NeverQuitEditing, OffersRegularApplicationsWithAnIdentifier) {
    FakePlatform machine;
    machine.workspace.launch({.pid = 1, .name = "beta", .bundleIdentifier = "b"});
    machine.workspace.launch({.pid = 2, .name = "Alpha", .bundleIdentifier = "a"});
    machine.workspace.launch(
        {.pid = 3, .name = "Tray", .bundleIdentifier = "t", .policy = ActivationPolicy::accessory});
    machine.workspace.launch({.pid = 4, .name = "Nobody"});
    const auto offered = addAppCandidates(machine.platform());
    ASSERT_EQ(offered.size(), 2U);
    EXPECT_EQ(offered[0].processIdentifier, 2);
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
