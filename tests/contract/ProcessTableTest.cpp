#include "fakes/FakeProcessTable.h"
#include "platform/linux/proc/LinuxProcessTable.h"
#include "platform/proc/RealProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <map>
#include <memory>

#include <unistd.h>

namespace calmora {
namespace {

/// Processes in memory; the test itself is one of them.
class FakeProcesses {
  public:
    FakeProcesses() { table.start(own, {.isRefused = true}); }

    ProcessId start() {
        table.start(++last_, {.parent = own});
        return last_;
    }

    void end(ProcessId process) { table.end(process); }

    /// An id that no process has.
    static constexpr ProcessId nobody = 999;
    static constexpr ProcessId own = 50;
    FakeProcessTable table;

  private:
    ProcessId last_ = 100;
};

/// Children of this process. An ended one stays a zombie, which counts as gone.
class LinuxProcesses {
  public:
    ProcessId start() {
        auto child = std::make_unique<RealProcess>();
        const ProcessId process = child->id();
        children_.emplace(process, std::move(child));
        return process;
    }

    void end(ProcessId process) { children_.at(process)->kill(); }

    static constexpr ProcessId nobody = 0x7ffffffe;
    const ProcessId own = getpid();

  private:
    ProcessReader reader_;
    ProcessMemory memory_{reader_};
    std::map<ProcessId, std::unique_ptr<RealProcess>> children_;

  public:
    LinuxProcessTable table{reader_, memory_};
};

template <typename Processes>
struct ProcessTableContract : testing::Test {
    Processes processes;
    ProcessTable& table = processes.table;

    /// The errno of a refused signal, 0 for one that went out.
    int refusal(ProcessId process, int signal) {
        errno = 0;
        const std::int32_t result = table.sendSignal(process, signal);
        EXPECT_TRUE(result == 0 || result == -1);
        return result == 0 ? 0 : errno;
    }

    bool isListed(ProcessId process) {
        const std::vector<ProcessId> all = table.allProcesses();
        return std::ranges::find(all, process) != all.end();
    }
};

using Implementations = testing::Types<FakeProcesses, LinuxProcesses>;
TYPED_TEST_SUITE(ProcessTableContract, Implementations);

TYPED_TEST(ProcessTableContract, TellsOfARunningProcess) {
    const ProcessId process = this->processes.start();
    EXPECT_EQ(this->table.parent(process), this->processes.own);
    EXPECT_TRUE(this->table.executablePath(process).value().starts_with("/"));
    EXPECT_TRUE(this->isListed(process));
    EXPECT_TRUE(this->table.hold(process));
    EXPECT_EQ(this->refusal(process, 0), 0);
    this->table.retainCounters({process});
    const auto before = this->table.counters(process);
    const auto after = this->table.counters(process);
    ASSERT_TRUE(before && after);
    EXPECT_GE(after->userTime, before->userTime);
}

TYPED_TEST(ProcessTableContract, KnowsNothingOfOneThatIsGone) {
    const ProcessId held = this->processes.start();
    const ProcessId process = this->processes.start();
    EXPECT_TRUE(this->table.hold(held));
    this->table.retainCounters({held, process});
    EXPECT_TRUE(this->table.counters(held));
    this->processes.end(held);
    this->processes.end(process);
    for (const ProcessId gone : {held, process, this->processes.nobody, 0, -1}) {
        EXPECT_FALSE(this->table.counters(gone)) << gone;
        EXPECT_FALSE(this->table.executablePath(gone)) << gone;
        EXPECT_FALSE(this->table.hold(gone)) << gone;
        EXPECT_EQ(this->refusal(gone, 0), ESRCH) << gone;
        EXPECT_EQ(this->refusal(gone, SIGTERM), ESRCH) << gone;
    }
    EXPECT_FALSE(this->table.parent(this->processes.nobody));
}

TYPED_TEST(ProcessTableContract, SignalsOthersButNotItself) {
    const ProcessId process = this->processes.start();
    EXPECT_TRUE(this->table.hold(process));
    EXPECT_EQ(this->refusal(process, SIGTERM), 0);
    for (int look = 0; look < 2000 && this->refusal(process, 0) == 0; ++look) {
        usleep(1000);
    }
    EXPECT_EQ(this->refusal(process, 0), ESRCH);
    EXPECT_EQ(this->refusal(this->processes.own, SIGTERM), EPERM);
}

} // namespace
} // namespace calmora
