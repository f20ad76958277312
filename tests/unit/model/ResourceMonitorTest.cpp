#include "model/ResourceMonitor.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

#include <array>

namespace calmora {
namespace {

using namespace std::chrono_literals;

constexpr std::uint64_t second = 1'000'000'000;

struct ResourceMonitorTest : testing::Test {
    FakePlatform machine;
    ResourceMonitor monitor{machine.platform()};
};

TEST_F(ResourceMonitorTest, MeasuresBetweenSamples) {
    struct Case {
        const char* name;
        ProcessCounters before;
        ProcessCounters after;
        std::chrono::milliseconds elapsed;
        double percent;
    };

    const ProcessCounters base{10 * second, 5 * second, 104'857'600};
    const auto used = [&](double user, double system) {
        return ProcessCounters{base.userTime + static_cast<std::uint64_t>(user * second),
                               base.systemTime + static_cast<std::uint64_t>(system * second),
                               base.physFootprint};
    };
    for (const Case& c : {
             Case{"user and system", base, used(1.5, 0.25), 1s, 175},
             Case{"no time between", base, used(1, 0), 0s, 0},
             Case{"user time fell", base, {0, 6 * second, 1}, 1s, 0},
             Case{"system time fell", base, {90 * second, 0, 1}, 1s, 0},
         }) {
        FakePlatform fresh;
        ResourceMonitor sampler(fresh.platform());
        fresh.processes.start(7, {.counters = c.before});
        const auto first = sampler.getUsage(7);
        ASSERT_TRUE(first) << c.name;
        EXPECT_EQ(first->cpuPercent, 0) << c.name;
        EXPECT_EQ(first->memoryMB, 100) << c.name;
        fresh.clock.advance(c.elapsed);
        fresh.processes.at(7).counters = c.after;
        EXPECT_DOUBLE_EQ(sampler.getUsage(7)->cpuPercent, c.percent) << c.name;
    }
}

TEST_F(ResourceMonitorTest, SkipsUnreadableProcessesAndKeepsTheirSnapshots) {
    machine.processes.start(1, {.counters = ProcessCounters{second, 0, 0}});
    machine.processes.start(2, {.counters = std::nullopt});
    const std::array<ProcessId, 4> pids{1, 2, 3, 1};
    machine.clock.advance(5s);
    const auto usages = monitor.getUsage(pids);
    EXPECT_EQ(usages.size(), 1U);
    EXPECT_TRUE(usages.contains(1));
    EXPECT_EQ(machine.processes.sampled, (std::vector<ProcessId>{1, 2, 3, 1}));

    machine.processes.at(1).counters.reset();
    EXPECT_FALSE(monitor.getUsage(1));
    EXPECT_EQ(monitor.snapshots().at(1).wallTime, 5s);
    machine.clock.advance(1s);
    machine.processes.at(1).counters = ProcessCounters{second * 3 / 2, 0, 0};
    EXPECT_DOUBLE_EQ(monitor.getUsage(1)->cpuPercent, 50);
}

} // namespace
} // namespace calmora
