// SPDX-License-Identifier: MIT
#include "model/QuitTogether.h"

#include "fakes/FakePlatform.h"

namespace calmora {
namespace {

using namespace std::chrono_literals;

/// What both engines have in common is tested with AppQuitter.
struct QuitTogetherTest : testing::Test {
    static constexpr auto never = std::nullopt;

    FakePlatform machine;
    QuitTogether together{machine.platform()};
    int finished = 0;
    Subscription finishes = together.onFinished([this](const auto&) { ++finished; });

    FakeApplication& launch(ProcessId pid, std::optional<std::chrono::milliseconds> endsAfter) {
        const std::string number = std::to_string(pid);
        machine.workspace.launch({.pid = pid,
                                  .name = number,
                                  .bundleIdentifier = "org.app" + number,
                                  .bundleURL = "/opt/" + number + "/",
                                  .process = {.counters = ProcessCounters{0, 0, 8U << 20U}},
                                  .endsAfterTerminate = endsAfter,
                                  .endsAfterForce = endsAfter});
        machine.processes.hold(pid); // As the list does.
        return machine.workspace.at(pid);
    }

    /// Whether it works that long and no longer.
    bool takes(std::chrono::milliseconds time) {
        machine.runLoop.advance(time - 1ms);
        const bool worked = together.isUnderWay();
        machine.runLoop.advance(1ms);
        return worked && !together.isUnderWay() && machine.clock.slept == 0us;
    }

    void lookAgain() { together.lookAgain(machine.workspace.runningApplications()); }
};

TEST_F(QuitTogetherTest, WaitsForAllAtOnceAndSaysWhyEachStayed) {
    launch(1, 320ms);
    launch(2, 40ms).pausesFirst = 100ms;
    launch(3, never).isAsking = true;
    launch(4, never).isUnresponsive = true;
    launch(5, never).acceptsTerminate = false;
    machine.processes.at(5).isRefused = true;
    launch(6, never);
    launch(7, 0ms);
    const std::vector<AppInfo> apps{
        {.pid = 1}, {.pid = 2, .memoryMB = 5}, {.pid = 3}, {.pid = 4}, {.pid = 5}, {.pid = 6}};
    together.begin(apps, false);
    EXPECT_TRUE(machine.workspace.terminateRequests.empty()) << "from the loop";
    machine.runLoop.advance(60ms);
    EXPECT_EQ(machine.workspace.terminateRequests, (std::vector<ProcessId>{1, 3, 4, 5, 6}));
    EXPECT_EQ(together.state(1), QuitState::quitting);
    EXPECT_EQ(together.state(5), QuitState::notAllowed);
    together.begin({{.pid = 1}, {.pid = 7}}, false);
    machine.runLoop.advance(1439ms);
    EXPECT_TRUE(together.isUnderWay());
    EXPECT_TRUE(takes(1ms)) << "one that joins has its own time";
    EXPECT_EQ(finished, 1);
    EXPECT_TRUE(machine.runLoop.timers().empty());
    EXPECT_EQ(std::ranges::count(machine.workspace.terminateRequests, 1), 1);
    const QuitResult result = *together.result();
    EXPECT_EQ(result.ended, 3U);
    EXPECT_EQ(result.left, 4U);
    EXPECT_EQ(result.freedMB, 8 + 5 + 8) << "as shown, else as it was";
    EXPECT_EQ(together.state(3), QuitState::asks);
    EXPECT_EQ(together.state(4), QuitState::doesNotAnswer);
    EXPECT_EQ(together.state(6), QuitState::none) << "not known";
    together.forgetEnded();
    EXPECT_FALSE(together.result());
    EXPECT_EQ(together.state(3), QuitState::asks) << "still, after Reopen";

    machine.workspace.at(3).isAsking = machine.workspace.at(4).isUnresponsive = false;
    machine.processes.end(5);
    lookAgain();
    EXPECT_FALSE(together.hasReasons());
}

TEST_F(QuitTogetherTest, SendsNothingOnceCancelled) {
    launch(1, never).process.survives = {SIGTERM};
    launch(2, never).pausesFirst = 100ms;
    together.begin({{.pid = 1}}, true);
    together.begin({{.pid = 2}}, false);
    machine.runLoop.advance(60ms);
    together.cancel();
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(together.result()->left, 2U);
    machine.runLoop.advance(5s);
    EXPECT_TRUE(machine.processes.signals.empty());
    EXPECT_TRUE(machine.workspace.terminateRequests.empty());

    together.begin({{.pid = 2}}, false);
    together.cancel();
    machine.runLoop.advance(5s);
    EXPECT_TRUE(machine.workspace.terminateRequests.empty()) << "not even asked";
}

TEST_F(QuitTogetherTest, NeverTouchesAProcessThatTheListHoldsUnderAnIdOfItsVictims) {
    launch(1, 100ms);
    machine.processes.start(11, {.executable = "/opt/1/helper"});
    machine.processes.start(12, {.executable = "/opt/1/helper", .survives = {SIGKILL}});
    launch(2, never).pausesFirst = 100ms;
    machine.clock.after(120ms, [this] {
        for (const ProcessId pid : {1, 2, 11}) {
            machine.processes.end(pid);
            machine.processes.start(pid, {.executable = "/usr/bin/innocent"});
            machine.processes.hold(pid); // As a refresh of the list does.
        }
    });
    together.begin({{.pid = 1}}, true);
    together.begin({{.pid = 2}}, false);
    EXPECT_TRUE(takes(1500ms));
    EXPECT_EQ(machine.processes.signals,
              (std::vector<std::pair<ProcessId, std::int32_t>>{{12, SIGKILL}}));

    // Between the click and the request.
    launch(3, 0ms);
    together.begin({{.pid = 3}}, true);
    machine.processes.end(3);
    launch(3, 0ms);
    machine.runLoop.turn();
    EXPECT_NE(machine.processes.serial(3), 0U);
    EXPECT_EQ(together.result()->ended, 0U) << "it had ended before";
}

TEST_F(QuitTogetherTest, TellsWhatCameBackByItself) {
    const struct {
        const char* name;
        std::string identifier;
        std::chrono::milliseconds after;
        bool forgets;
        QuitState state;
    } cases[] = {
        {"at once", "org.app1", 0ms, false, QuitState::cameBack},
        {"in time", "org.app1", 3000ms, false, QuitState::cameBack},
        {"by the user", "org.app1", 3001ms, false, QuitState::none},
        {"by Reopen", "org.app1", 100ms, true, QuitState::none},
        {"another one", "org.other", 0ms, false, QuitState::none},
    };

    ProcessId next = 100;
    for (const auto& c : cases) {
        launch(1, 0ms);
        together.begin({{.pid = 1, .bundleIdentifier = "org.app1"}}, false);
        machine.runLoop.turn();
        machine.runLoop.advance(c.after);
        if (c.forgets) {
            together.forgetEnded();
        }
        launch(++next, 0ms).bundleIdentifier = c.identifier;
        lookAgain();
        EXPECT_EQ(together.state(next), c.state) << c.name;
        EXPECT_EQ(together.hasReasons(), c.state == QuitState::cameBack) << c.name;
        machine.processes.end(next);
        lookAgain();
        EXPECT_FALSE(together.hasReasons()) << c.name;
    }
    // Another instance that ran already.
    launch(2, never).bundleIdentifier = "org.app1";
    launch(1, 0ms);
    together.begin({{.pid = 1, .bundleIdentifier = "org.app1"}}, false);
    machine.runLoop.turn();
    lookAgain();
    EXPECT_FALSE(together.hasReasons());
}

} // namespace
} // namespace calmora
