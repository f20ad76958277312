#include "autoquit/AutoQuitManager.h"

#include "fakes/FakePlatform.h"
#include "settings/AppSettings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>

namespace calmora {
namespace {

using namespace std::chrono_literals;
using Pids = std::vector<ProcessId>;
using Names = std::vector<std::string>;

constexpr std::uint64_t second = 1'000'000'000;

struct AutoQuitManagerTest : testing::Test {
    AutoQuitManagerTest() {
        settings.setAutoQuitEnabled(true);
        settings.setAutoQuitMinutes(15);
        machine.strings.texts["auto_quit_notification %@ %lld"] = "%@ after %lld minutes";
        machine.strings.singular["auto_quit_notification %@ %lld"] = "%@ after %lld minute";
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

    /// Makes an application one that was last in front so long ago.
    void age(const std::string& bundleIdentifier, std::chrono::seconds since) {
        manager.activityTracker().recordActivation(bundleIdentifier, machine.clock.wall - since);
    }

    /// One pass: whom it asked to quit.
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

    FakePlatform machine;
    AppSettings settings{machine.defaults};
    FakeUserNotifications notifications;
    FakeInputGate input;
    AutoQuitManager manager{settings, machine.platform(), notifications, input};
};

TEST_F(AutoQuitManagerTest, LooksFirstAfterAMinuteAndKeepsOneTimer) {
    {
        AutoQuitManager shortLived(settings, machine.platform(), notifications, input);
        shortLived.start();
        shortLived.activityTracker().recordActivation("a", {});
        launch(1, "a");
        machine.runLoop.advance(59s);
        shortLived.start();
        machine.runLoop.advance(59s);
        EXPECT_EQ(machine.workspace.lists, 0);
        machine.runLoop.advance(1s);
        EXPECT_EQ(machine.workspace.terminateRequests, Pids{1});
    }
    EXPECT_TRUE(machine.runLoop.timers().empty());
}

TEST_F(AutoQuitManagerTest, ReadsTheSettingsOnEveryPass) {
    launch(1, "a");
    age("a", 20min);
    settings.setAutoQuitEnabled(false);
    EXPECT_EQ(check(), Pids{});
    settings.setAutoQuitEnabled(true);
    settings.setAutoQuitMinutes(30);
    EXPECT_EQ(check(), Pids{});
    EXPECT_EQ(machine.workspace.lists, 0) << "nobody is inactive: nothing is listed";
    settings.setAutoQuitMinutes(19);
    EXPECT_EQ(check(), Pids{1}) << "the time since the last activation counts at once";
    EXPECT_EQ(notices(), Names{"App 1 after 19 minutes"});
}

TEST_F(AutoQuitManagerTest, TakesAnyStoredMinutes) {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    ProcessId process = 1;

    struct Case {
        std::int64_t minutes;
        std::chrono::seconds age;
        bool isQuit;
    };

    for (const Case& c : {
             Case{0, 1s, true},
             Case{0, 0s, false},
             Case{-5, 0s, true},
             Case{-5, -6min, false},
             Case{45, 45min, false},
             Case{45, 45min + 1s, true},
             Case{most / 60, 24h * 365, false},
             Case{most / 60 + 1, 24h * 365, false},
             Case{most, 24h * 365, false},
             Case{std::numeric_limits<std::int64_t>::min() / 60, 0s, true},
             Case{std::numeric_limits<std::int64_t>::min() / 60 - 1, 1h, false},
             Case{std::numeric_limits<std::int64_t>::min(), 1h, false},
         }) {
        launch(++process, "a");
        age("a", c.age);
        settings.setAutoQuitMinutes(c.minutes);
        EXPECT_EQ(check(), c.isQuit ? Pids{process} : Pids{}) << c.minutes;
        machine.processes.end(process);
    }
    notifications.added.clear();
    launch(1, "a");
    age("a", 90s);
    settings.setAutoQuitMinutes(1);
    check();
    EXPECT_EQ(notices(), Names{"App 1 after 1 minute"});
}

TEST_F(AutoQuitManagerTest, SparesWhatTheUserAndTheCatalogueProtect) {
    settings.setNeverQuitApps({"listed", "desktop-name"});
    machine.workspace.canonicalIdentifiers["desktop-name"] = "known.name";

    struct Case {
        const char* bundleIdentifier;
        bool isQuit;
        bool isQuitWithoutMusicRule;
    };

    const Case cases[] = {
        {"unknown.app", true, true},
        {"com.apple.finder", false, false},
        {"listed", false, false},
        {"known.name", false, false},
        {"Listed", true, true},
        {"com.tidal.desktop", false, true},
        {"com.spotify.client", false, true},
        {"com.apple.Safari", true, true},
    };
    ProcessId process = 0;
    for (const bool musicRule : {true, false}) {
        settings.setNeverQuitMusicApps(musicRule);
        Pids expected;
        for (const Case& c : cases) {
            launch(++process, c.bundleIdentifier);
            age(c.bundleIdentifier, 1h);
            if (musicRule ? c.isQuit : c.isQuitWithoutMusicRule) {
                expected.push_back(process);
            }
        }
        EXPECT_EQ(check(), expected) << musicRule;
        while (!machine.workspace.runningApplications().empty()) {
            machine.processes.end(
                machine.workspace.runningApplications().front().processIdentifier);
        }
    }
}

TEST_F(AutoQuitManagerTest, AppliesEveryIdleBehaviourOfTheCatalogue) {
    const auto behavesAs = [](const std::string& bundleIdentifier) {
        return KnownApps::lookup(bundleIdentifier)->idleBehavior;
    };
    const std::string safe = "com.apple.Safari";
    const std::string never = "com.docker.docker";
    const std::string cautious = "com.jetbrains.fleet";
    ASSERT_EQ(behavesAs(safe), IdleBehavior::safeToQuit);
    ASSERT_EQ(behavesAs(never), IdleBehavior::neverQuit);
    ASSERT_EQ(behavesAs(cautious), IdleBehavior::cautious);
    launch(1, safe);
    launch(2, never);
    age(safe, 1h);
    age(never, 1h);
    EXPECT_EQ(check(), Pids{1});
    EXPECT_TRUE(machine.processes.sampled.empty()) << "only the cautious are sampled";

    struct Case {
        double percent;
        bool isQuit;
    };

    std::uint64_t usedBefore = 0;
    for (const Case& c : {Case{2.9, true}, Case{3.0, false}, Case{150, false}}) {
        usedBefore += 1000 * second;
        machine.workspace.launch({.pid = 3,
                                  .bundleIdentifier = cautious,
                                  .process = {.counters = ProcessCounters{usedBefore, 0, 0}},
                                  .endsAfterTerminate = std::nullopt});
        age(cautious, 1h);
        EXPECT_EQ(check(), Pids{3}) << "the first sample has no figure";
        machine.clock.advance(58500ms);
        machine.processes.at(3).counters->userTime +=
            static_cast<std::uint64_t>(std::llround(c.percent / 100 * 60 * second));
        age(cautious, 1h);
        EXPECT_EQ(check(), c.isQuit ? Pids{3} : Pids{}) << c.percent;
        machine.processes.end(3);
        // Whoever gets the process id next starts anew.
        age("unknown", 1h);
        check();
    }
    machine.workspace.launch(
        {.pid = 4, .bundleIdentifier = cautious, .process = {.counters = std::nullopt}});
    age(cautious, 1h);
    EXPECT_EQ(check(), Pids{4}) << "no figure: not busy";
}

TEST_F(AutoQuitManagerTest, AsksRegularApplicationsWithAnIdentifierOneByOne) {
    launch(1, "a");
    launch(2, std::nullopt);
    launch(3, "b");
    machine.workspace.launch(
        {.pid = 4, .bundleIdentifier = "a", .policy = ActivationPolicy::accessory});
    machine.workspace.launch({.pid = 5, .bundleIdentifier = "a"});
    age("a", 1h);
    age("b", 1min);
    age("gone", 1min);
    machine.workspace.activate(1); // To be in front now spares nobody whose time is up.
    EXPECT_EQ(check(), (Pids{1, 5}));
    EXPECT_EQ(machine.workspace.lookups, (Pids{1, 5}));
    EXPECT_TRUE(machine.workspace.forceRequests.empty());
    EXPECT_EQ(notices(), (Names{"App 1 after 15 minutes", "a after 15 minutes"}));
    EXPECT_EQ(input.discards, 2);

    const auto& entries = manager.activityTracker().lastActiveTime();
    EXPECT_TRUE(entries.contains("a")) << "it was running when the pass began";
    EXPECT_TRUE(entries.contains("b"));
    EXPECT_FALSE(entries.contains("gone"));
}

TEST_F(AutoQuitManagerTest, TellsOnlyOfWhatHasGone) {
    using Delay = std::optional<std::chrono::milliseconds>;
    settings.setDefaultQuitMode(QuitMode::force);
    for (const Delay endsAfter : {Delay(1300ms), Delay()}) {
        machine.workspace.launch(
            {.pid = 1, .bundleIdentifier = "a", .endsAfterTerminate = endsAfter});
        age("a", 1h);
        EXPECT_EQ(check(), Pids{1});
        EXPECT_EQ(notices().size(), 1U) << "of the first, while the second asks to save";
    }
    EXPECT_EQ(check(), Pids{1}) << "what is still there stays eligible";
    EXPECT_EQ(notices().size(), 1U);
    EXPECT_TRUE(machine.workspace.forceRequests.empty());
}

TEST_F(AutoQuitManagerTest, NamesEachNoticeByApplicationAndTime) {
    machine.clock.wall = std::chrono::system_clock::time_point(1'700'000'000s);
    manager.postAutoQuitNotification("%lld %@", 480);
    machine.clock.advance(250ms);
    manager.postAutoQuitNotification("Ünï", 1);
    ASSERT_EQ(notifications.added.size(), 2U);
    EXPECT_EQ(notifications.added[0].title, "Calmora");
    EXPECT_EQ(notifications.added[0].body, "%lld %@ after 480 minutes");
    EXPECT_EQ(notifications.added[0].identifier, "autoQuit-%lld %@-1700000000.0");
    EXPECT_EQ(notifications.added[1].body, "Ünï after 1 minute");
    EXPECT_EQ(notifications.added[1].identifier, "autoQuit-Ünï-1700000000.25");
}

} // namespace
} // namespace calmora
