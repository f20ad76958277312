#include "autoquit/ActivityTracker.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace calmora {
namespace {

using namespace std::chrono_literals;
using Names = std::vector<std::string>;

struct ActivityTrackerTest : testing::Test {
    /// Brings an application to the front; the notice is delivered.
    void activate(ProcessId process) {
        machine.workspace.activate(process);
        machine.runLoop.turn();
    }

    [[nodiscard]] Names inactive(std::chrono::duration<double> threshold) const {
        Names names = tracker.inactiveApps(threshold);
        std::ranges::sort(names);
        return names;
    }

    FakePlatform machine;
    ActivityTracker tracker{machine.platform()};
};

TEST_F(ActivityTrackerTest, KnowsTheFrontmostAtTheStartAndEveryActivationAfterIt) {
    machine.workspace.launch({.pid = 1, .bundleIdentifier = "front"});
    machine.workspace.launch({.pid = 2, .bundleIdentifier = "later"});
    machine.workspace.launch({.pid = 3, .bundleIdentifier = "later"});
    machine.workspace.launch({.pid = 4, .bundleIdentifier = "never"});
    machine.workspace.launch({.pid = 5, .name = "Without identifier"});
    activate(4);
    activate(1);
    EXPECT_TRUE(tracker.lastActiveTime().empty()) << "nothing is heard before the start";
    tracker.startTracking();
    const auto start = machine.clock.wall;

    machine.clock.advance(10s);
    activate(5);
    activate(2);
    machine.clock.advance(10s);
    activate(3);
    machine.clock.advance(10s);
    tracker.startTracking();
    const std::map<std::string, ActivityTracker::Date> expected{{"front", start},
                                                                {"later", start + 20s}};
    EXPECT_EQ(tracker.lastActiveTime(), expected) << "one entry for two instances";

    tracker.pruneEntries({"later", "stranger"});
    EXPECT_EQ(tracker.lastActiveTime().size(), 1U);
    EXPECT_EQ(tracker.lastActiveTime().at("later"), start + 20s);
    tracker.pruneEntries({});
    EXPECT_TRUE(tracker.lastActiveTime().empty());
    activate(1);
    EXPECT_EQ(tracker.lastActiveTime().size(), 1U);
}

TEST_F(ActivityTrackerTest, StartsWithoutAFrontmostAndEndsItsListening) {
    {
        ActivityTracker shortLived(machine.platform());
        shortLived.startTracking();
        EXPECT_TRUE(shortLived.lastActiveTime().empty());
        EXPECT_TRUE(machine.workspace.activated.hasListeners());
    }
    EXPECT_FALSE(machine.workspace.activated.hasListeners());
}

TEST_F(ActivityTrackerTest, ComparesAgesStrictlyAndByTheWallClock) {
    const auto now = machine.clock.wall;
    tracker.recordActivation("old", now - 100s);
    tracker.recordActivation("older", now - 100s - 1ns);
    tracker.recordActivation("fresh", now);
    tracker.recordActivation("future", now + 50s);

    struct Case {
        double threshold;
        Names expected;
    };

    for (const Case& c : {
             Case{100, {"older"}},
             Case{99.5, {"old", "older"}},
             Case{0, {"old", "older"}},
             Case{-1, {"fresh", "old", "older"}},
             Case{-3600, {"fresh", "future", "old", "older"}},
             Case{1e300, {}},
             Case{-1e300, {"fresh", "future", "old", "older"}},
             Case{std::numeric_limits<double>::infinity(), {}},
         }) {
        EXPECT_EQ(inactive(std::chrono::duration<double>(c.threshold)), c.expected) << c.threshold;
    }
    machine.clock.wall += 60s;
    EXPECT_EQ(inactive(10s), (Names{"fresh", "old", "older"})) << "not yet the one at 10 s";
    machine.clock.wall -= 3600s;
    EXPECT_EQ(inactive(10s), Names{}) << "a clock that was set back makes everything young";
}

} // namespace
} // namespace calmora
