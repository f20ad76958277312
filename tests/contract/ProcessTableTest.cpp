#include "fakes/FakeProcessTable.h"
#include "platform/linux/proc/LinuxClock.h"
#include "platform/linux/proc/LinuxProcessTable.h"
#include "platform/linux/protection/SessionGuard.h"
#include "support/RealProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <memory>

#include <unistd.h>

namespace calmora {
namespace {

/// Processes in memory, including the test itself.
struct FakeProcesses {
    FakeProcesses() { table.start(own, {.isRefused = true}); }

    ProcessId start() {
        table.start(++last, {.parent = own});
        return last;
    }

    void end(ProcessId process) { table.end(process); }

    const ProcessId own = 50;
    FakeProcessTable table;
    ProcessId last = 100;
};

/// Children of this process. An ended one stays a zombie, which counts as gone.
struct LinuxProcesses {
    ProcessId start() {
        auto child = std::make_unique<RealProcess>();
        return children.emplace(child->id(), std::move(child)).first->first;
    }

    void end(ProcessId process) { children.at(process)->kill(); }

    const ProcessId own = getpid();
    ProcessReader reader;
    ProcessMemory memory{reader};
    std::map<ProcessId, std::unique_ptr<RealProcess>> children;
    LinuxClock clock;
    SessionGuard guard{reader, clock, {}};
    LinuxProcessTable table{reader, memory, guard};
};

template <typename Processes>
struct ProcessTableContract : testing::Test {
    Processes processes;
    ProcessTable& table = processes.table;

    /// The errno of a refused signal; 0 if it was sent.
    int refusal(ProcessId process, int signal) {
        return table.sendSignal(process, signal) == 0 ? 0 : errno;
    }
};

using Implementations = testing::Types<FakeProcesses, LinuxProcesses>;
TYPED_TEST_SUITE(ProcessTableContract, Implementations);

TYPED_TEST(ProcessTableContract, ReportsAProcessUntilItIsGone) {
    const ProcessId process = this->processes.start();
    const ProcessId other = this->processes.start();
    EXPECT_EQ(this->table.parent(process), this->processes.own);
    EXPECT_TRUE(this->table.executablePath(process).value().starts_with("/"));
    EXPECT_EQ(std::ranges::count(this->table.allProcesses(), process), 1);
    EXPECT_TRUE(this->table.hold(process));
    this->table.retainCounters({process, other});
    EXPECT_TRUE(this->table.counters(process));
    EXPECT_EQ(this->refusal(process, 0), 0);
    EXPECT_EQ(this->refusal(this->processes.own, SIGTERM), EPERM) << "never itself";

    EXPECT_EQ(this->refusal(process, SIGTERM), 0);
    EXPECT_TRUE(waitFor([&] { return this->refusal(process, 0) == ESRCH; }));
    this->processes.end(other);
    for (const ProcessId gone : {process, other, 0x7ffffffe, 0, -1}) {
        EXPECT_FALSE(this->table.counters(gone)) << gone;
        EXPECT_FALSE(this->table.executablePath(gone)) << gone;
        EXPECT_FALSE(this->table.hold(gone)) << gone;
        EXPECT_EQ(this->refusal(gone, SIGTERM), ESRCH) << gone;
    }
}

} // namespace
} // namespace calmora
