// SPDX-License-Identifier: MIT
#include "model/ProcessMonitor.h"

#include "autoquit/ProcessTreeSampler.h"
#include "fakes/FakePlatform.h"
#include "model/ResourceMonitor.h"

#include <array>

namespace calmora {
namespace {

using enum ActivationPolicy;

std::string listing(const std::vector<AppInfo>& apps) {
    std::string text;
    for (const AppInfo& app : apps) {
        text += app.name + ":" + std::to_string(app.pid);
        if (app.parentBundleIdentifier) {
            text += "<" + *app.parentBundleIdentifier;
        }
        text += " ";
    }
    return text;
}

FakeApplication application(ProcessId pid, std::optional<std::string> name,
                            std::optional<std::string> identifier,
                            ActivationPolicy policy = regular, ProcessId parent = 1) {
    return {.pid = pid,
            .name = std::move(name),
            .bundleIdentifier = std::move(identifier),
            .policy = policy,
            .process = {.parent = parent}};
}

TEST(ProcessMonitor, ListsRegularApplicationsByName) {
    FakePlatform machine;
    ProcessMonitor monitor(machine.platform());
    for (const FakeApplication& app :
         {application(10, "beta", "org.b"), application(11, "Alpha", std::nullopt),
          application(12, "BETA", "org.b2"), application(13, "Calmora", "app.calmora.Calmora"),
          application(14, "", "org.empty"), application(16, "Agent", "org.agent", accessory),
          application(17, "Files", "com.apple.finder"),
          application(18, "files", "com.apple.Finder")}) {
        machine.workspace.launch(app);
    }
    const ApplicationSnapshot running = machine.workspace.runningApplications();
    EXPECT_EQ(listing(monitor.getRunningApps(running, true)),
              "Alpha:11 beta:10 BETA:12 Files:17 files:18 ");
    EXPECT_EQ(listing(monitor.getRunningApps(running, false)),
              "Alpha:11 beta:10 BETA:12 files:18 ");
}

TEST(ProcessMonitor, ListsBackgroundApplicationsWithTheirDirectParent) {
    FakePlatform machine;
    ProcessMonitor monitor(machine.platform());
    for (const FakeApplication& app : {application(20, "Editor", "org.example.PhotoEditor"),
                                       application(21, "Nameless", std::nullopt),
                                       application(22, "helper", "org.helper", accessory, 20),
                                       application(23, "Agent", "org.agent", prohibited, 22),
                                       application(24, "Orphan", "org.orphan", accessory, 99),
                                       application(25, "Child", "org.child", accessory, 21),
                                       application(26, "Anonymous", std::nullopt, accessory, 20),
                                       application(28, "Me", "app.calmora.Calmora", accessory, 20),
                                       application(29, "Files", "com.apple.finder", accessory)}) {
        machine.workspace.launch(app);
    }
    machine.processes.at(29).parent.reset();
    const ApplicationSnapshot running = machine.workspace.runningApplications();
    const std::vector<AppInfo> apps = monitor.getBackgroundApps(running);
    EXPECT_EQ(listing(apps),
              "Agent:23 Child:25 Files:29 helper:22<org.example.PhotoEditor Orphan:24 ");
    EXPECT_TRUE(apps.front().isBackgroundApp);
    machine.processes.at(22).parent = 0;
    EXPECT_EQ(listing(monitor.getBackgroundApps(running)),
              "Agent:23 Child:25 Files:29 helper:22 Orphan:24 ");
}

using namespace std::chrono_literals;

constexpr std::uint64_t second = 1'000'000'000;

TEST(ResourceMonitor, MeasuresBetweenSamples) {
    const ProcessCounters base{10 * second, 5 * second, 104'857'600};
    const ProcessCounters busy{base.userTime + 3 * second / 2, base.systemTime + second / 4};

    const struct {
        const char* name;
        ProcessCounters after;
        std::chrono::milliseconds elapsed;
        double percent;
    } cases[] = {
        {"user and system", busy, 1s, 175},
        {"no time between", busy, 0s, 0},
        {"user time fell", {0, 6 * second, 1}, 1s, 0},
        {"system time fell", {90 * second, 0, 1}, 1s, 0},
    };

    for (const auto& c : cases) {
        FakePlatform fresh;
        ResourceMonitor sampler(fresh.platform());
        fresh.processes.start(7, {.counters = base});
        const auto first = sampler.getUsage(7);
        ASSERT_TRUE(first) << c.name;
        EXPECT_EQ(first->cpuPercent, 0) << c.name;
        EXPECT_EQ(first->memoryMB, 100) << c.name;
        fresh.clock.advance(c.elapsed);
        fresh.processes.at(7).counters = c.after;
        EXPECT_DOUBLE_EQ(sampler.getUsage(7)->cpuPercent, c.percent) << c.name;
    }
}

TEST(ResourceMonitor, SkipsUnreadableProcessesAndKeepsTheirSnapshots) {
    FakePlatform machine;
    ResourceMonitor monitor{machine.platform()};
    machine.processes.start(1, {.counters = ProcessCounters{second, 0, 0}});
    machine.processes.start(2, {.counters = std::nullopt});
    machine.clock.advance(5s);
    EXPECT_EQ(monitor.getUsage(std::array<ProcessId, 3>{1, 2, 3}).size(), 1U);
    machine.processes.at(1).counters.reset();
    EXPECT_FALSE(monitor.getUsage(1));
    EXPECT_EQ(monitor.snapshots().at(1).wallTime, 5s);
    machine.clock.advance(1s);
    machine.processes.at(1).counters = ProcessCounters{second * 3 / 2, 0, 0};
    EXPECT_DOUBLE_EQ(monitor.getUsage(1)->cpuPercent, 50);
}

struct ProcessTreeSamplerTest : testing::Test {
    ProcessTreeSamplerTest() {
        start(10, 1, 100s);
        start(11, 10, 100s);
        start(20, 1, 100s);
        running.resize(1);
        running[0].processIdentifier = 10;
    }

    void start(ProcessId process, ProcessId parent, std::chrono::nanoseconds used) {
        machine.processes.start(process, {.parent = parent});
        use(process, used);
    }

    void use(ProcessId process, std::chrono::nanoseconds more) {
        ProcessCounters& counters = *machine.processes.at(process).counters;
        // Some tables report the two separately.
        counters.userTime += static_cast<std::uint64_t>(more.count()) / 2;
        counters.systemTime += static_cast<std::uint64_t>(more.count()) / 2;
    }

    /// The next pass, a minute after the last one.
    std::optional<double> percent(std::chrono::seconds later = 60s) {
        machine.clock.advance(later);
        sampler.beginPass(running);
        return sampler.cpuPercent(10);
    }

    FakePlatform machine;
    ProcessTreeSampler sampler{machine.platform()};
    std::vector<WorkspaceApplication> running;
};

TEST_F(ProcessTreeSamplerTest, SumsTheApplicationAndItsDescendants) {
    EXPECT_EQ(percent(), std::nullopt) << "nothing to compare with";
    use(10, 300ms);
    use(11, 600ms);
    use(20, 50s);
    start(12, 11, 1500ms);
    EXPECT_DOUBLE_EQ(percent().value(), 4.0) << "a new process counts from its start";
    machine.processes.end(12);
    EXPECT_EQ(percent(), 0.0) << "an ended process does not count";
    start(11, 10, 30s);
    EXPECT_DOUBLE_EQ(percent().value(), 50.0) << "another process with the same id";
    machine.processes.at(11).counters.reset();
    use(10, 6s);
    EXPECT_DOUBLE_EQ(percent().value(), 10.0) << "an unreadable process counts as idle";
    EXPECT_EQ(std::ranges::count(machine.processes.sampled, 20), 0);
}

TEST_F(ProcessTreeSamplerTest, ComparesOnlyWithARecentSample) {
    EXPECT_EQ(percent(), std::nullopt);
    EXPECT_EQ(percent(0s), std::nullopt) << "no time has passed";
    EXPECT_EQ(percent(181s), std::nullopt);
    EXPECT_EQ(percent(180s), 0.0);
    running[0].processIdentifier = 20;
    sampler.beginPass(running);
    EXPECT_EQ(percent(), std::nullopt) << "it was not running in between";
    machine.processes.at(10).parent = 11;
    EXPECT_EQ(percent(), std::nullopt) << "not sampled while it is not running";
    running[0].processIdentifier = 10;
    percent();
    EXPECT_EQ(percent(), 0.0) << "a cycle ends";
}

} // namespace
} // namespace calmora
