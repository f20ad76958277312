#include "autoquit/ProcessTreeSampler.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

namespace calmora {
namespace {

using namespace std::chrono_literals;

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
