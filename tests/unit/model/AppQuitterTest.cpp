// SPDX-License-Identifier: MIT
#include "model/AppQuitter.h"

#include "fakes/FakePlatform.h"
#include "model/QuitTogether.h"

namespace calmora {
namespace {

using namespace std::chrono_literals;
using PidSet = std::set<ProcessId>;
using Signals = std::vector<std::pair<ProcessId, std::int32_t>>;

constexpr auto never = std::nullopt;

/// One engine blocks, the other one is driven by the run loop: what they do and when is the same.
struct AppQuitterTest : testing::TestWithParam<bool> {
    FakePlatform machine;
    AppQuitter quitter{machine.platform()};

    bool quit(ProcessId pid, bool force) { return quit(machine, pid, force); }

    bool quit(FakePlatform& on, ProcessId pid, bool force) const {
        if (GetParam()) {
            return AppQuitter(on.platform()).quitApp(pid, force);
        }
        QuitTogether engine(on.platform());
        engine.begin({{.pid = pid}}, force);
        on.runLoop.turn();
        while (engine.isUnderWay()) {
            on.runLoop.advance(10ms);
        }
        return engine.result()->ended == 1;
    }

    /// An application in a folder of its own.
    FakeApplication app(ProcessId pid, std::optional<std::string> identifier = "org.app") {
        return {.pid = pid,
                .name = "App",
                .bundleIdentifier = std::move(identifier),
                .bundleURL = "/opt/app/",
                .process = {.executable = "/opt/app/run"}};
    }

    /// The time that has passed since the last call.
    std::chrono::nanoseconds waited() {
        return machine.clock.ticks() - std::exchange(lastTicks_, machine.clock.ticks());
    }

  private:
    std::chrono::nanoseconds lastTicks_{0};
};

INSTANTIATE_TEST_SUITE_P(Engines, AppQuitterTest, testing::Bool(),
                         [](const auto& info) { return info.param ? "blocking" : "together"; });

TEST_P(AppQuitterTest, QuitsPolitelyAndReportsOnlyWhatIsGone) {
    const struct {
        const char* name;
        bool accepts;
        std::optional<std::chrono::milliseconds> endsAfter;
        bool isGone;
        std::chrono::milliseconds waits;
    } cases[] = {
        {"at once", true, 0ms, true, 0ms},
        {"after a while", true, 320ms, true, 350ms},
        {"at the last moment", true, 1500ms, true, 1500ms},
        {"too late", true, 1501ms, false, 1500ms},
        {"asks to save", true, never, false, 1500ms},
        {"refuses", false, never, false, 0ms},
    };

    ProcessId pid = 100;
    for (const auto& c : cases) {
        FakeApplication application = app(++pid);
        application.acceptsTerminate = c.accepts;
        application.endsAfterTerminate = c.endsAfter;
        machine.workspace.launch(application);
        EXPECT_EQ(quit(pid, false), c.isGone) << c.name;
        EXPECT_EQ(waited(), c.waits) << c.name;
    }
    EXPECT_FALSE(quit(99, false)) << "no such application";
    EXPECT_EQ(machine.workspace.terminateRequests,
              (std::vector<ProcessId>{101, 102, 103, 104, 105, 106}))
        << "no other instance is asked";
    EXPECT_TRUE(machine.processes.signals.empty());
    EXPECT_TRUE(machine.workspace.forceRequests.empty());
}

TEST_P(AppQuitterTest, ForcesEveryInstanceAndEscalatesOnlyToSurvivors) {
    machine.workspace.launch(app(11, "org.other"));
    for (const ProcessId pid : {21, 22, 23}) {
        FakeApplication instance = app(pid);
        instance.endsAfterForce = pid == 22 ? never : std::optional(200ms);
        machine.workspace.launch(instance);
    }
    machine.processes.at(11).executable = "/usr/bin/other";
    machine.processes.start(31, {.executable = "/opt/app/lib/helper"});
    machine.processes.start(32, {.executable = "/opt/application/sibling"});
    machine.processes.start(33, {.executable = std::nullopt});

    EXPECT_TRUE(quit(22, true));
    EXPECT_EQ(machine.workspace.forceRequests, (std::vector<ProcessId>{22, 21, 23}));
    EXPECT_EQ(machine.processes.signals, (Signals{{22, SIGKILL}, {31, SIGKILL}}));
    EXPECT_EQ(waited(), 500ms);
    EXPECT_EQ(machine.processes.allProcesses(), (std::vector<ProcessId>{11, 32, 33}));
}

TEST_P(AppQuitterTest, KillsHelpersOfEveryInstanceEvenIfSomeDieWithTheirParent) {
    for (const ProcessId pid : {1, 2}) {
        FakeApplication instance = app(pid);
        instance.bundleURL = "/opt/app" + std::to_string(pid) + "/";
        instance.endsAfterForce = never;
        machine.workspace.launch(instance);
        machine.processes.start(pid + 2, {.executable = *instance.bundleURL + "helper"});
    }
    const Subscription dying = machine.processes.ended.connect([this](ProcessId ended) {
        if (ended == 1) {
            machine.processes.end(3);
        }
    });
    EXPECT_TRUE(quit(1, true));
    EXPECT_TRUE(machine.processes.allProcesses().empty());
}

TEST_P(AppQuitterTest, FindsHelpersByPlainPrefix) {
    struct Case {
        const char* name;
        std::optional<std::string> bundle;
        std::optional<std::string> executable;
        bool findsHelper;
        bool findsSibling;
    };

    for (const Case& c : {
             Case{"closing slash", "/opt/app/", "/usr/bin/x", true, false},
             Case{"no slash", "/opt/app", "/usr/bin/x", true, true},
             Case{"no bundle", never, "/opt/app/run", true, true},
             Case{"no executables below", "/opt/app/run/", "/opt/app/run", false, false},
             Case{"empty", "", "/opt/app/run", false, false},
             Case{"neither", never, never, false, false},
         }) {
        FakePlatform fresh;
        FakeApplication application = app(1000, never);
        application.bundleURL = c.bundle;
        application.executableURL = c.executable;
        fresh.workspace.launch(application);
        fresh.processes.start(31, {.executable = "/opt/app/helper"});
        fresh.processes.start(32, {.executable = "/opt/app2/sibling"});
        EXPECT_TRUE(quit(fresh, 1000, true)) << c.name;
        EXPECT_EQ(fresh.processes.serial(31) == 0, c.findsHelper) << c.name;
        EXPECT_EQ(fresh.processes.serial(32) == 0, c.findsSibling) << c.name;
        EXPECT_TRUE(fresh.workspace.identifierLookups.empty()) << c.name;
    }
}

TEST_P(AppQuitterTest, ReportsAFailedKill) {
    FakeApplication stubborn = app(1);
    stubborn.acceptsForce = false;
    stubborn.process.survives = {SIGKILL};
    machine.workspace.launch(stubborn);
    EXPECT_FALSE(quit(1, true));
    EXPECT_EQ(waited(), 1500ms) << "half a second before the kill, one after";
    EXPECT_EQ(machine.processes.signals, (Signals{{1, SIGKILL}}));

    FakeApplication foreign = app(2, "org.foreign");
    foreign.acceptsForce = false;
    foreign.bundleURL = "/opt/foreign/";
    foreign.process.isRefused = true;
    machine.workspace.launch(foreign);
    machine.processes.start(3, {.executable = "/opt/foreign/helper"});
    EXPECT_FALSE(quit(2, true));
    EXPECT_EQ(waited(), 500ms) << "a refused kill ends the stage at once";
    EXPECT_NE(machine.processes.serial(3), 0U) << "the rest get no signal";
}

TEST_P(AppQuitterTest, NeverTouchesAProcessWithAReusedPid) {
    FakeApplication application = app(1);
    application.endsAfterForce = 100ms;
    machine.workspace.launch(application);
    machine.processes.start(2, {.executable = "/opt/app/helper"});
    machine.processes.start(3, {.executable = "/opt/app/other"});
    machine.processes.start(5, {.executable = "/opt/app/third"});
    machine.clock.after(120ms, [this] {
        machine.processes.start(1, {.executable = "/usr/bin/innocent"});
        machine.processes.start(2, {.executable = "/usr/bin/innocent"});
        machine.clock.after(330ms, [this] { machine.processes.end(3); });
    });
    // The pid is reused between the lookup and the hold.
    FakeApplication late = app(4, "org.late");
    machine.workspace.launch(late);
    machine.processes.onHold = [this](ProcessId pid) {
        if (pid >= 4) {
            machine.processes.start(pid, {.executable = "/usr/bin/innocent"});
        }
    };
    EXPECT_FALSE(quit(4, false));
    EXPECT_TRUE(machine.workspace.terminateRequests.empty());
    EXPECT_TRUE(quit(1, true));
    EXPECT_EQ(waited(), 450ms) << "no kill for processes that end in time";
    EXPECT_TRUE(machine.processes.signals.empty());
    EXPECT_EQ(machine.processes.allProcesses(), (std::vector<ProcessId>{1, 2, 4, 5}));
}

TEST_P(AppQuitterTest, AsksCandidatesButSignalsNoneOfThemNorTheirHelpers) {
    FakeApplication twins = app(2);
    twins.candidates = {2, 3};
    twins.endsAfterTerminate = 320ms;
    machine.workspace.launch(twins);
    machine.processes.start(3, {.executable = "/opt/app/run"});
    machine.processes.start(1, {.executable = "/opt/app/helper"});
    FakeApplication known = app(4);
    known.acceptsForce = false;
    machine.workspace.launch(known);
    const std::vector<AppInfo> ticked{{.pid = 2}, {.pid = 4}};

    EXPECT_EQ(quitter.quitApps(ticked, true), PidSet{4}) << "an instance of its own";
    EXPECT_EQ(machine.workspace.forceRequests, std::vector<ProcessId>{4});
    EXPECT_EQ(machine.processes.signals, (Signals{{4, SIGKILL}}));
    EXPECT_EQ(waited(), 500ms);
    EXPECT_TRUE(quit(2, false)) << "gone with its windows";
    EXPECT_EQ(waited(), 350ms);
    EXPECT_EQ(machine.processes.allProcesses(), (std::vector<ProcessId>{1, 2, 3}));
}

TEST_P(AppQuitterTest, QuitsTickedRecordsInSequence) {
    for (const ProcessId pid : {1, 2, 3, 4}) {
        FakeApplication application = app(pid, "org.app" + std::to_string(pid));
        application.endsAfterTerminate = pid == 2 ? never : std::optional(40ms);
        machine.workspace.launch(application);
    }
    const std::vector<AppInfo> records{
        {.pid = 1}, {.pid = 2}, {.pid = 9}, {.pid = 3, .isSelected = false}, {.pid = 4}};
    EXPECT_EQ(quitter.quitApps(records, false), (PidSet{1, 4}));
    EXPECT_EQ(machine.workspace.terminateRequests, (std::vector<ProcessId>{1, 2, 4}));
    EXPECT_EQ(waited(), 50ms + 1500ms + 50ms);
    EXPECT_EQ(quitter.quitApps(records, true), (PidSet{2}));
}

TEST_P(AppQuitterTest, MeasuresWaitsByTheMonotonicClock) {
    machine.processes.start(1);
    EXPECT_TRUE(quitter.waitForExit({}, 0ms));
    EXPECT_TRUE(quitter.waitForExit({2, 0, -1}, 0ms)) << "ids below 1 name no process";
    EXPECT_FALSE(quitter.waitForExit({1}, 0ms));
    EXPECT_EQ(waited(), 0ms);
    EXPECT_EQ(machine.processes.probed, (PidSet{1, 2}));

    machine.clock.after(60ms, [this] { machine.clock.wall -= 24h; });
    EXPECT_FALSE(quitter.waitForExit({1}, 500ms));
    EXPECT_EQ(waited(), 500ms);

    AppQuitterOperations slow = platformOperations(machine.platform());
    slow.sleep = [this](std::chrono::microseconds) { machine.clock.sleep(400ms); };
    EXPECT_FALSE(AppQuitter(slow, machine.clock).waitForExit({1}, 500ms));
    EXPECT_EQ(waited(), 800ms) << "pauses that take longer are not repeated ten times";
}

} // namespace
} // namespace calmora
