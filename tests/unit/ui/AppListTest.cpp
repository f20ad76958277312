// SPDX-License-Identifier: MIT
#include "ui/AppListViewModel.h"

#include "fakes/FakePlatform.h"
#include "model/QuitTogether.h"
#include "settings/AppSettings.h"
#include "ui/ForceQuitConfirmation.h"
#include "ui/SteadyList.h"

namespace calmora {
namespace {

using namespace std::chrono_literals;
using Change = AppListChange;

/// "name" per row, marked "+" when ticked, "!" when protected, members in brackets.
std::string summary(const std::vector<AppInfo>& apps) {
    std::string text;
    for (const AppInfo& app : apps) {
        text += (text.empty() ? "" : " ") + app.name + (app.isSelected ? "+" : "") +
                (app.isWhitelisted ? "!" : "");
        if (app.childProcesses) {
            text += "[" + summary(*app.childProcesses) + "]";
        }
    }
    return text;
}

struct AppListViewModelTest : testing::Test {
    FakePlatform machine;
    AppSettings settings{machine.defaults};
    /// What blocks is the same where there is one.
    QuitTogether together{machine.platform()};
    AppListViewModel model{settings, machine.platform(), &together};

    FakeApplication& launch(ProcessId pid, std::string name, std::optional<std::string> identifier,
                            ActivationPolicy policy = ActivationPolicy::regular,
                            ProcessId parent = 1) {
        machine.workspace.launch(
            {.pid = pid,
             .name = std::move(name),
             .bundleIdentifier = std::move(identifier),
             .policy = policy,
             .bundleURL = "/opt/" + std::to_string(pid) + "/",
             .process = {.parent = parent,
                         .counters = ProcessCounters{0, 0, std::uint64_t(pid) << 20}}});
        return machine.workspace.at(pid);
    }

    /// Four applications: one of a vendor, a music player, one without identifier, the file
    /// manager.
    void launchSome() {
        launch(4, "Xd", "com.adobe.xd");
        launch(3, "Music", "org.gnome.Rhythmbox3");
        launch(2, "bare", std::nullopt);
        launch(1, "Files", "com.apple.finder");
    }
};

TEST_F(AppListViewModelTest, KeepsTicksAndFiguresByProcess) {
    launchSome();
    model.refresh();
    EXPECT_EQ(summary(model.apps()), "bare+ Music Xd+");

    model.toggleSelection(2);
    model.toggleSelection(3);
    model.updateResourceUsage();
    settings.deselectAppsByDefault.set(true);
    settings.includeFinderWindows.set(true);
    settings.neverQuitMusicApps.set(false);
    model.refresh();
    EXPECT_EQ(summary(model.apps()), "bare Files Music+ Xd+");
    EXPECT_EQ(model.apps()[0].memoryMB, 2);

    machine.processes.end(4);
    launch(5, "Xd", "com.adobe.xd");
    model.refresh();
    EXPECT_EQ(summary(model.apps()), "bare Files Music+ Xd") << "a new process starts afresh";

    settings.deselectAppsByDefault.set(false);
    launch(6, "Yet", "org.yet").isActivityKnown = false;
    model.refresh();
    EXPECT_EQ(summary(model.apps()), "bare Files Music+ Xd Yet");
    model.toggleSelection(6);
    model.refresh();
    EXPECT_EQ(summary(model.apps()), "bare Files Music+ Xd Yet+") << "the user wants it";
}

TEST_F(AppListViewModelTest, SumsCandidatesAndLetsNoTickAppearWhenTheyPart) {
    launch(1, "Twin", "org.twin").candidates = {1, 3};
    machine.processes.start(3, {.counters = ProcessCounters{0, 0, 3U << 20U}});
    launch(2, "Other", "org.other");
    model.refresh();
    model.updateResourceUsage();
    machine.clock.advance(1s);
    machine.processes.at(3).counters->userTime = 500'000'000;
    model.refresh();
    model.updateResourceUsage();
    EXPECT_EQ(model.apps()[1].memoryMB, 4);
    EXPECT_EQ(model.apps()[1].cpuUsage, 50);

    launch(3, "Own row", "org.twin");
    model.refresh();
    EXPECT_EQ(model.selectedCount(false), 3U);
    EXPECT_EQ(model.selectedCount(true), 1U) << "the question is about those that it will end";
    EXPECT_EQ(model.quitSelected(true), 1U);
    EXPECT_EQ(summary(model.apps()), "Own row+ Twin+");
    EXPECT_TRUE(machine.processes.signals.empty());
    model.setAllSelected(false);
    machine.processes.end(1);
    machine.processes.end(3);
    launch(3, "Twin", "org.twin");
    model.refresh();
    EXPECT_EQ(summary(model.apps()), "Twin");
    launch(2, "Lower", "org.twin").candidates = {2, 3};
    machine.processes.end(3);
    model.refresh();
    EXPECT_EQ(summary(model.apps()), "Lower");
}

TEST_F(AppListViewModelTest, ProtectsByIdentifierAndUnticksMusic) {
    launchSome();
    launch(6, "Xd 2", "com.adobe.xd");
    model.refresh();
    model.toggleWhitelist(4);
    EXPECT_EQ(summary(model.apps()), "bare+ Music Xd! Xd 2!");
    EXPECT_EQ(settings.neverQuitApps(), std::set<std::string>{"com.adobe.xd"});

    model.toggleSelection(6);
    model.toggleSelection(3);
    EXPECT_EQ(summary(model.apps()), "bare+ Music+ Xd! Xd 2!") << "music can be ticked by hand";
    EXPECT_EQ(model.selectedCount(false), 2U);
    model.setSearchText("xd");
    EXPECT_EQ(model.selectAllClick(), (SelectAllClick{false, {2, 2}})) << "none is left to tick";
    model.setAllSelected(false);
    EXPECT_EQ(model.selectedCount(false), 0U);
    EXPECT_EQ(model.selectAllClick(), (SelectAllClick{true, {1, 1}}));
    model.setAllSelected(true);
    EXPECT_EQ(summary(model.apps()), "bare+ Music Xd! Xd 2!");
    settings.neverQuitMusicApps.set(false);
    EXPECT_EQ(model.selectAllClick(), (SelectAllClick{true, {2, 2}})) << "no music rule";
    settings.neverQuitMusicApps.set(true);

    machine.workspace.canonicalIdentifiers = {{"photo-tool", "com.adobe.xd"}};
    settings.neverQuitApps.set({"photo-tool", "com.adobe.xd"});
    model.applyWhitelist();
    EXPECT_EQ(summary(model.apps()), "bare+ Music Xd! Xd 2!");
    model.toggleWhitelist(4);
    EXPECT_EQ(summary(model.apps()), "bare+ Music Xd Xd 2") << "under whatever name it was stored";
    EXPECT_TRUE(settings.neverQuitApps().empty());

    machine.workspace.at(6).otherIdentifiers = {"org.writer"};
    settings.neverQuitApps.set({"org.writer"});
    model.refresh();
    EXPECT_EQ(summary(model.apps()), "bare+ Music Xd Xd 2!") << "one window's application counts";
}

TEST_F(AppListViewModelTest, SortsAndSearches) {
    launch(10, "Safari", "org.s");
    launch(11, "apple", "org.a");
    launch(12, "Beta", "org.b");
    launch(13, "alpha", "org.a2");
    model.refresh();
    machine.processes.at(12).counters.reset();
    model.updateResourceUsage();
    machine.clock.advance(1s);
    machine.processes.at(11).counters->userTime = 800'000'000;
    machine.processes.at(10).counters->systemTime = 900'000'000;
    model.updateResourceUsage();

    EXPECT_EQ(summary(model.filteredApps()), "alpha+ apple+ Beta+ Safari+");
    settings.sortOrder.set(SortOrder::cpuUsage);
    EXPECT_EQ(summary(model.filteredApps()), "Safari+ apple+ alpha+ Beta+");
    settings.sortOrder.set(SortOrder::memoryUsage);
    EXPECT_EQ(summary(model.filteredApps()), "alpha+ apple+ Safari+ Beta+");

    model.setSearchText("AP");
    EXPECT_EQ(summary(model.filteredApps()), "apple+");
    EXPECT_EQ(model.selected(false), (EntryCount{4, 3}));

    model.setSearchText("");
    const std::vector<ProcessId> shown{12, 99, 10};
    EXPECT_EQ(summary(inShownOrder(model.filteredApps(), shown)), "Beta+ Safari+ alpha+ apple+");
}

TEST_F(AppListViewModelTest, ShowsBackgroundApplicationsAsTheSettingsAsk) {
    launch(10, "Editor", "org.Editor");
    launch(11, "zeta", "org.zeta", ActivationPolicy::accessory, 10);
    launch(12, "Sync", "org.sync", ActivationPolicy::accessory, 10);
    launch(13, "Agent", "org.agent", ActivationPolicy::prohibited);
    model.refresh();
    EXPECT_EQ(summary(model.filteredBackgroundApps()), "");

    settings.viewBackgroundApps.set(true);
    settings.sortOrder.set(SortOrder::memoryUsage);
    EXPECT_EQ(summary(model.filteredBackgroundApps()), "Agent+ Editor+[Sync+ zeta+]");
    model.setSearchText("ZET");
    EXPECT_EQ(summary(model.filteredBackgroundApps()), "Editor+[Sync+ zeta+]");

    model.updateResourceUsage();
    EXPECT_EQ(machine.processes.sampled, std::vector<ProcessId>{10});
    EXPECT_TRUE(model.quitApp(13, false)) << "a background application can be quit";
}

TEST_F(AppListViewModelTest, QuitsAndRemovesWhatHasEnded) {
    launchSome();
    launch(6, "Stays", "org.stays").endsAfterTerminate.reset();
    settings.playSounds.set(true);
    model.refresh();
    std::vector<Change> changes;
    const Subscription watching = model.observe([&](const Change& change) {
        changes.push_back(change);
        EXPECT_FALSE(machine.sounds.calls.empty()) << "heard before the rows go";
    });

    EXPECT_EQ(model.quitSelected(false), 2U);
    EXPECT_EQ(summary(model.apps()), "Music Stays+");
    EXPECT_EQ(machine.sounds.calls, (std::vector<std::string>{"stop", "play"}));
    const Change removal{Change::Property::apps, Change::Reason::removedAfterQuit};
    EXPECT_EQ(changes, std::vector{removal});

    EXPECT_FALSE(model.quitApp(6, false));
    EXPECT_EQ(changes.size(), 1U);
    EXPECT_TRUE(model.quitApp(6, true));
    EXPECT_TRUE(model.quitApp(3, false));
    EXPECT_EQ(summary(model.apps()), "");
    EXPECT_EQ(machine.sounds.calls.size(), 6U);

    settings.playSounds.set(false);
    launch(8, "Quiet", "org.quiet");
    EXPECT_TRUE(model.quitApp(8, false));
    EXPECT_EQ(machine.sounds.calls.size(), 6U);
}

TEST_F(AppListViewModelTest, KeepsRowsThatAreBeingQuitUntilTheyEnd) {
    settings.playSounds.set(true);
    launch(1, "Hiding", "org.hiding").endsAfterTerminate = 200ms;
    launch(2, "Asking", "org.asking").endsAfterTerminate = std::nullopt;
    launch(3, "Spared", "org.spared");
    model.refresh();
    model.toggleSelection(3);
    int removals = 0;
    const Subscription watching = model.observe([&](const Change& change) {
        removals += change.reason == Change::Reason::removedMeanwhile ? 1 : 0;
    });
    model.beginQuitSelected(false);
    machine.runLoop.turn();
    machine.workspace.at(1).policy = ActivationPolicy::accessory;
    model.refresh();
    EXPECT_EQ(summary(model.apps()), "Asking+ Hiding+ Spared") << "its windows are closed";
    EXPECT_TRUE(model.backgroundApps().empty());
    EXPECT_EQ(model.apps()[1].quitState, QuitState::quitting);
    EXPECT_EQ(model.apps()[2].quitState, QuitState::none);
    machine.runLoop.advance(201ms);
    EXPECT_EQ(summary(model.apps()), "Asking+ Spared");
    EXPECT_EQ(removals, 1);
    EXPECT_TRUE(machine.sounds.calls.empty());

    machine.workspace.at(2).isAsking = true;
    machine.runLoop.advance(1500ms);
    EXPECT_EQ(model.apps()[0].quitState, QuitState::asks);
    EXPECT_EQ(machine.sounds.calls.size(), 2U) << "once for all";
    EXPECT_TRUE(model.show(2));
    EXPECT_EQ(machine.workspace.frontmostApplication()->processIdentifier, 2);
    model.startPolling(3s);
    machine.workspace.at(2).isAsking = false;
    machine.runLoop.advance(3s);
    EXPECT_EQ(model.apps()[0].quitState, QuitState::none) << "without a refresh";
}

TEST_F(AppListViewModelTest, MayBeDestroyedByWhoeverItTells) {
    launchSome();
    settings.neverQuitApps.set({"com.adobe.xd", "photo-tool"});
    machine.workspace.canonicalIdentifiers = {{"photo-tool", "com.adobe.xd"}};
    std::unique_ptr<AppListViewModel> own;
    const std::function<void()> actions[] = {
        [&] { own->refresh(); },          [&] { own->updateResourceUsage(); },
        [&] { own->startPolling(1s); },   [&] { own->setAllSelected(true); },
        [&] { own->toggleWhitelist(2); }, [&] { own->toggleWhitelist(4); },
    };
    for (const auto& act : actions) {
        own = std::make_unique<AppListViewModel>(settings, machine.platform());
        own->refresh();
        own->startPolling(2s);
        int told = 0;
        const auto destroy = [&] {
            ++told;
            own.reset();
        };
        const Subscription list = own->observe([&](const Change&) { destroy(); });
        const Subscription setting = settings.observeAny([&] { own.reset(); });
        act();
        EXPECT_LE(told, 1) << &act - actions;
    }
    EXPECT_TRUE(settings.neverQuitApps().empty()) << "the user's wish is fulfilled all the same";
}

TEST(ForceQuitConfirmation, AsksAndTakesOnlyTheFirstButtonForYes) {
    FakePlatform machine;
    machine.alerts.answers = {0, 1};
    EXPECT_TRUE(confirmForceQuitAll(machine.alerts, machine.strings, 3));
    EXPECT_FALSE(
        confirmForceQuit(machine.alerts, machine.strings, "Mail\n<b>%@\u202E", Image{"mail"}));
    const Alert& all = machine.alerts.shown.at(0);
    const Alert& one = machine.alerts.shown.at(1);
    EXPECT_EQ(all.messageText, "Do you want to force quit 3 selected apps?");
    EXPECT_EQ(one.messageText, "Do you want to force \"Mail <b>%@\" to quit?");
    EXPECT_EQ(all.style, AlertStyle::critical);
    EXPECT_EQ(all.buttons.at(0).title + "|" + all.buttons.at(1).title, "Force Quit All|Cancel");
    EXPECT_TRUE(all.buttons.at(0).isDestructive && !all.buttons.at(1).isDestructive);
}

} // namespace
} // namespace calmora
