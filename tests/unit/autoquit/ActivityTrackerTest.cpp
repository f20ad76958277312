#include "autoquit/ActivityTracker.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

using namespace std::chrono_literals;
using Times = std::map<std::string, ActivityTracker::Date>;

struct ActivityTrackerTest : testing::Test {
    /// Brings an application to the front and delivers the event.
    void activate(ProcessId process) {
        machine.workspace.activate(process);
        machine.runLoop.turn();
    }

    FakePlatform machine;
    ActivityTracker tracker{machine.platform()};
};

TEST_F(ActivityTrackerTest, RecordsTheFrontmostAndEveryActivation) {
    machine.workspace.launch({.pid = 1, .bundleIdentifier = "front"});
    machine.workspace.launch({.pid = 2, .bundleIdentifier = "later"});
    machine.workspace.launch({.pid = 3, .bundleIdentifier = "later"});
    machine.workspace.launch({.pid = 4, .bundleIdentifier = "never"});
    machine.workspace.launch({.pid = 5, .name = "Without identifier"});
    activate(4);
    activate(1);
    EXPECT_TRUE(tracker.lastActiveTime().empty()) << "no events before the start";
    tracker.startTracking();
    const auto start = machine.clock.wall;

    machine.clock.advance(10s);
    activate(5);
    activate(2);
    machine.clock.advance(10s);
    activate(3);
    machine.clock.advance(10s);
    tracker.startTracking();
    EXPECT_EQ(tracker.lastActiveTime(), (Times{{"front", start}, {"later", start + 20s}}))
        << "one entry for two instances";

    tracker.pruneEntries({"later", "stranger"});
    EXPECT_EQ(tracker.lastActiveTime(), (Times{{"later", start + 20s}}));
    activate(1);
    EXPECT_EQ(tracker.lastActiveTime(), (Times{{"front", start + 30s}, {"later", start + 20s}}));
}

} // namespace
} // namespace calmora
