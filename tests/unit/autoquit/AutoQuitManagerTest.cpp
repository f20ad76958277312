// SPDX-License-Identifier: MIT
#include "fakes/FakeAutoQuit.h"

#include <cmath>
#include <limits>

namespace calmora {
namespace {

using namespace std::chrono_literals;
using Pids = std::vector<ProcessId>;
using Names = std::vector<std::string>;

constexpr std::uint64_t oneSecond = 1'000'000'000;

struct AutoQuitManagerTest : testing::Test, FakeAutoQuit {
    AutoQuitManagerTest() {
        settings.autoQuitEnabled.set(true);
        settings.autoQuitMinutes.set(15);
        machine.strings.texts["auto_quit_notification %@ %lld"] = "After %lld minutes: %@";
    }

    /// As long as nothing in use is to be spared.
    ~AutoQuitManagerTest() override {
        EXPECT_EQ(uses.reads, 0);
        EXPECT_EQ(notifications.shows, 0);
        EXPECT_FALSE(away.isFollowing);
    }

    void launch(ProcessId process, std::optional<std::string> bundleIdentifier) {
        machine.workspace.launch({.pid = process,
                                  .name = "App " + std::to_string(process),
                                  .bundleIdentifier = std::move(bundleIdentifier)});
    }

    void activate(ProcessId process) {
        machine.workspace.activate(process);
        machine.runLoop.turn();
    }

    /// Records that an application was last in front so long ago.
    void age(const std::string& bundleIdentifier, std::chrono::seconds since) {
        manager.activityTracker().recordActivation(bundleIdentifier, machine.clock.wall - since);
    }

    /// One pass: the applications that it asked to quit.
    Pids check() {
        machine.workspace.terminateRequests.clear();
        manager.checkAndQuitInactiveApps();
        return machine.workspace.terminateRequests;
    }

    [[nodiscard]] Names notices() const {
        Names bodies;
        for (const UserNotification& notice : notifications.added) {
            bodies.push_back(notice.body);
        }
        return bodies;
    }
};

TEST_F(AutoQuitManagerTest, MayBeDestroyedByWhoeverItNotifies) {
    launch(1, "app1");
    launch(2, "app2");
    auto own = std::make_unique<AutoQuitManager>(surroundings);
    for (const char* app : {"app1", "app2"}) {
        own->activityTracker().recordActivation(app, machine.clock.wall - 1h);
    }
    notifications.onAdded = [&] { own.reset(); };
    own->checkAndQuitInactiveApps();
    EXPECT_EQ(machine.workspace.terminateRequests, Pids{1});
}

TEST_F(AutoQuitManagerTest, QuitsIdleApplicationsOverADay) {
    for (const ProcessId process : {1, 2, 3, 4}) {
        launch(process, "app" + std::to_string(process));
    }
    activate(1);
    manager.activityTracker().startTracking();
    manager.start();
    manager.start();

    std::map<ProcessId, int> quitAt;
    for (int minute = 0; minute < 24 * 60; ++minute) {
        // 2 is used for an hour, 3 every ten minutes until the evening and then stays in front, 4
        // never.
        if (minute > 0 && minute <= 60 && minute % 7 == 0) {
            activate(2);
        } else if (minute > 0 && minute <= 18 * 60 && minute % 10 == 0) {
            activate(3);
        }
        machine.runLoop.advance(1min);
        for (const ProcessId process : machine.workspace.terminateRequests) {
            quitAt.try_emplace(process, minute + 1);
        }
    }
    EXPECT_EQ(quitAt, (std::map<ProcessId, int>{{1, 16}, {2, 56 + 16}, {3, 18 * 60 + 16}}))
        << "later than 15 minutes, not at them; the frontmost is not exempt";
    EXPECT_EQ(notices(), (Names{"After 15 minutes: App 1", "After 15 minutes: App 2",
                                "After 15 minutes: App 3"}));
    EXPECT_EQ(machine.runLoop.timers(), (std::vector<std::chrono::milliseconds>{1min}));
}

TEST_F(AutoQuitManagerTest, AcceptsAnyStoredMinutes) {
    using Limits = std::numeric_limits<std::int64_t>;
    ProcessId process = 0;
    const std::tuple<std::int64_t, std::chrono::seconds, bool> cases[] = {
        {0, 1s, true},
        {0, -1h, false}, // The clock was set back.
        {-5, 0s, true},
        {15, 15min, false},
        {Limits::max() / 60 + 1, 24h * 365, false},
        {Limits::max(), 24h * 365, false},
        {Limits::min(), 1h, false}};
    for (const auto& [minutes, since, isQuit] : cases) {
        launch(++process, "a");
        age("a", since);
        settings.autoQuitMinutes.set(minutes);
        EXPECT_EQ(check(), isQuit ? Pids{process} : Pids{}) << minutes;
        machine.processes.end(process);
    }
}

TEST_F(AutoQuitManagerTest, SparesProtectedApplications) {
    settings.neverQuitApps.set({"listed", "desktop-name"});
    machine.workspace.canonicalIdentifiers["desktop-name"] = "known.name";
    ProcessId process = 0;
    for (const bool musicRule : {true, false}) {
        settings.neverQuitMusicApps.set(musicRule);
        for (const auto& [identifier, isQuit] : {std::pair{"unknown.app", true},
                                                 {"com.apple.finder", false},
                                                 {"com.apple.Safari", true},
                                                 {"listed", false},
                                                 {"known.name", false},
                                                 {"Listed", true},
                                                 {"com.spotify.client", !musicRule}}) {
            launch(++process, identifier);
            age(identifier, 1h);
            EXPECT_EQ(check(), isQuit ? Pids{process} : Pids{}) << identifier << musicRule;
            machine.processes.end(process);
        }
    }
    EXPECT_EQ(machine.processes.sampled, Pids{process}) << "only cautious applications are sampled";
}

TEST_F(AutoQuitManagerTest, SparesBusyCautiousApplications) {
    const std::string cautious = "com.jetbrains.fleet";
    std::uint64_t usedBefore = 0;
    for (const auto& [percent, isQuit] : {std::pair{2.9, true}, {3.0, false}, {150.0, false}}) {
        usedBefore += 1000 * oneSecond;
        machine.workspace.launch({.pid = 3,
                                  .bundleIdentifier = cautious,
                                  .process = {.counters = ProcessCounters{usedBefore, 0, 0}},
                                  .endsAfterTerminate = std::nullopt});
        age(cautious, 1h);
        EXPECT_EQ(check(), Pids{3}) << "the first sample has no figure";
        machine.clock.advance(58500ms);
        machine.processes.at(3).counters->userTime +=
            static_cast<std::uint64_t>(std::llround(percent / 100 * 60 * oneSecond));
        age(cautious, 1h);
        EXPECT_EQ(check(), isQuit ? Pids{3} : Pids{}) << percent;
        machine.processes.end(3);
        // The next process with this pid starts afresh.
        age("unknown", 1h);
        check();
    }
    machine.workspace.launch(
        {.pid = 4, .bundleIdentifier = cautious, .process = {.counters = std::nullopt}});
    age(cautious, 1h);
    EXPECT_EQ(check(), Pids{4}) << "no figure: not busy";
}

TEST_F(AutoQuitManagerTest, SparesLinuxApplicationsWithBusyChildren) {
    launch(9, "org.gnome.Slow");
    machine.workspace.at(9).mustAnswerSoon = true;
    age("org.gnome.Slow", 24h);
    launch(8, "org.example.Unseen");
    machine.workspace.at(8).isActivityKnown = false;
    age("org.example.Unseen", 24h);
    machine.workspace.installed = {{"debian-xterm", {}}, {"org.xfce.mousepad", {}}};
    launch(10, "debian-xterm");
    age("debian-xterm", 24h);
    EXPECT_EQ(check(), Pids{});
    EXPECT_EQ(machine.processes.sampled, Pids{}) << "nothing is sampled without need";
    launch(20, "org.xfce.mousepad");
    machine.workspace.at(20).candidates = {20, 30};
    machine.processes.start(30);
    for (const auto& [parent, childUses, isQuit] :
         {std::tuple{20, 0s, false}, {20, 2s, false}, {30, 2s, false}, {30, 3s, true}}) {
        machine.clock.advance(1min);
        age("org.xfce.mousepad", 1h);
        machine.processes.start(
            21, {.parent = parent,
                 .counters = ProcessCounters{
                     .userTime = static_cast<std::uint64_t>(childUses.count()) * oneSecond}});
        EXPECT_EQ(check(), isQuit ? Pids{20} : Pids{}) << childUses.count();
    }
}

TEST_F(AutoQuitManagerTest, AsksEachRegularApplicationWithAnIdentifier) {
    settings.defaultQuitMode.set(QuitMode::force);
    launch(1, "a");
    launch(2, std::nullopt);
    launch(3, "b");
    machine.workspace.launch(
        {.pid = 4, .bundleIdentifier = "a", .policy = ActivationPolicy::accessory});
    machine.workspace.launch({.pid = 5, .bundleIdentifier = "a"});
    age("a", 1h);
    age("b", 1min);
    age("gone", 1min);
    EXPECT_EQ(check(), (Pids{1, 5}));
    EXPECT_TRUE(machine.workspace.forceRequests.empty()) << "whatever the default is";
    EXPECT_EQ(notices(), (Names{"After 15 minutes: App 1", "After 15 minutes: a"}));
    EXPECT_EQ(input.discards, 2);

    const auto& entries = manager.activityTracker().lastActiveTime();
    EXPECT_TRUE(entries.contains("a")) << "it was running when the pass began";
    EXPECT_TRUE(entries.contains("b"));
    EXPECT_FALSE(entries.contains("gone"));
}

} // namespace
} // namespace calmora
