// SPDX-License-Identifier: MIT
#include "platform/linux/proc/LinuxProcessTable.h"
#include "platform/linux/proc/LinuxClock.h"
#include "platform/linux/protection/SessionGuard.h"
#include "support/RealProcess.h"
#include "support/TempFolder.h"

#include <iostream>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/syscall.h>

namespace calmora {
namespace {

/// A table of its own for each test.
struct Table {
    explicit Table(std::optional<std::size_t> descriptors = {}) : memory(reader, descriptors) {}

    /// 0 for success, else errno.
    int signal(ProcessId process, int number) {
        return table.sendSignal(process, number) == 0 ? 0 : errno;
    }

    ProcessReader reader;
    ProcessMemory memory;
    LinuxClock clock;
    SessionGuard guard{reader, clock, {}};
    LinuxProcessTable table{reader, memory, guard};
};

bool isAlive(ProcessId process) {
    siginfo_t info{};
    return waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           info.si_pid == 0;
}

/// Runs `body` in a fork, as a user; it gives what is wrong, nothing where all is right.
void expectInFork(const std::function<std::string()>& body, uid_t user = getuid()) {
    const auto run = [&] {
        const std::string wrong = setuid(user) == 0 ? body() : "no right to be another user";
        std::cerr << wrong;
        _exit(wrong.empty() ? 0 : 1);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}

void burnCpu(std::chrono::milliseconds duration) {
    timespec time{};
    const auto used = [&time] {
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    };
    while (used() < duration) {
    }
}

/// Three ways to know a process: by descriptor, by its start time, and not at all.
struct Views {
    explicit Views(ProcessId process) {
        EXPECT_TRUE(held.table.hold(process) && heldByTime.table.hold(process));
    }

    Table held;
    Table heldByTime{0};
    Table unheld;
    const std::array<Table*, 3> all{&held, &heldByTime, &unheld};
};

TEST(LinuxProcessTable, CountsAZombieThatNobodyReapsAsGone) {
    auto* shared = static_cast<ProcessId*>(mmap(nullptr, sizeof(ProcessId), PROT_READ | PROT_WRITE,
                                                MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    const RealProcess parent([shared] {
        const pid_t child = fork();
        if (child == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            pause();
        }
        *shared = child;
    });
    const ProcessId zombie = *shared;
    munmap(shared, sizeof(ProcessId));
    Views views(zombie);
    ASSERT_EQ(views.held.signal(zombie, SIGKILL), 0);
    for (Table* table : views.all) {
        EXPECT_TRUE(waitFor([&] { return table->signal(zombie, 0) == ESRCH; }));
        EXPECT_EQ(table->signal(zombie, SIGKILL), ESRCH);
        EXPECT_FALSE(table->table.hold(zombie));
        EXPECT_FALSE(table->table.counters(zombie));
    }
    EXPECT_EQ(kill(zombie, 0), 0) << "it was reaped, so this test tells nothing";
}

TEST(LinuxProcessTable, KeepsAProcessWhoseMainThreadEndedFirst) {
    const RealProcess process([] {
        std::thread([] {
            while (true) {
                pause();
            }
        }).detach();
        // The closed pipe tells that it is ready.
        for (int descriptor = 3; descriptor < 64; ++descriptor) {
            close(descriptor);
        }
        syscall(SYS_exit, 0);
    });
    Views views(process.id());
    ASSERT_TRUE(waitFor([&] { return views.held.reader.stat(process.id())->state == 'Z'; }));
    for (Table* table : views.all) {
        EXPECT_EQ(table->signal(process.id(), 0), 0);
    }
    EXPECT_EQ(views.held.signal(process.id(), SIGKILL), 0);
    EXPECT_TRUE(waitFor([&] { return views.heldByTime.signal(process.id(), 0) == ESRCH; }));
}

TEST(LinuxProcessTable, NeverSignalsInitItselfItsAncestorsOrTheKernel) {
    Table table;
    for (const ProcessId none : {0, -1, 0x7ffffffe}) {
        EXPECT_EQ(table.signal(none, SIGCONT), ESRCH);
        EXPECT_FALSE(table.table.hold(none) || table.table.counters(none));
        EXPECT_FALSE(table.table.executablePath(none)) << none;
    }
    // SIGCONT does no harm where the guard fails.
    for (ProcessId ours = getpid(); ours > 0; ours = table.table.parent(ours).value_or(0)) {
        EXPECT_EQ(table.signal(ours, SIGCONT), EPERM) << ours;
    }
    for (const ProcessId process : table.reader.processesOf(0, 4096)) {
        if (const auto stat = table.reader.stat(process); stat && stat->isKernelThread) {
            EXPECT_EQ(table.signal(process, SIGCONT), EPERM) << process;
            EXPECT_FALSE(table.table.counters(process));
        }
    }
}

TEST(LinuxProcessTable, LeavesOtherUsersProcessesAlone) {
    SKIP_WITHOUT_RIGHT(getuid() == 0, "be other users");
    const RealProcess theirs([] { setuid(nobody) == 0 ? void() : _exit(1); });
    const RealProcess withOurRights([] { setresuid(nobody, 0, 0) == 0 ? void() : _exit(1); });
    Table table;
    for (const RealProcess* process : {&theirs, &withOurRights}) {
        EXPECT_EQ(table.signal(process->id(), SIGKILL), EPERM);
        EXPECT_TRUE(isAlive(process->id()));
    }
    EXPECT_EQ(table.signal(theirs.id(), 0), EPERM);
    EXPECT_EQ(std::ranges::count(table.table.allProcesses(), theirs.id()), 0);

    const RealProcess roots;
    expectInFork(
        [&]() -> std::string {
            Table seen;
            if (seen.signal(roots.id(), SIGKILL) != EPERM) {
                return "a process of root was not refused";
            }
            return std::ranges::count(seen.table.allProcesses(), roots.id()) == 0 ? ""
                                                                                  : "it was listed";
        },
        nobody);
    EXPECT_TRUE(isAlive(roots.id()));
}

TEST(LinuxProcessTable, ReachesASetuidProgramThatItsUserStarted) {
    SKIP_WITHOUT_RIGHT(getuid() == 0, "be other users");
    const TempFolder folder;
    const std::filesystem::path program = folder.path() / "sleep-as-root";
    std::filesystem::copy_file("/usr/bin/sleep", program);
    ASSERT_TRUE(chmod(folder.path().c_str(), 0755) == 0 && chmod(program.c_str(), 04755) == 0);
    expectInFork(
        [&]() -> std::string {
            const RealProcess raised(
                [&] { execl(program.c_str(), program.c_str(), "60", nullptr); });
            Table table;
            const auto status = table.reader.status(raised.id());
            return !status || status->realUser != nobody             ? "it is no setuid process"
                   : table.reader.executable(raised.id())            ? "it does not hide"
                   : table.signal(raised.id(), SIGKILL) != 0         ? "it is not reached"
                   : !waitFor([&] { return !isAlive(raised.id()); }) ? "it lives on"
                                                                     : "";
        },
        nobody);
}

TEST(LinuxProcessTable, LeavesProgramsOfAnotherDisplayOut) {
    const auto sleeperWith = [](const char* environment) {
        return [environment] { execlp("env", "env", "-i", environment, "sleep", "60", nullptr); };
    };
    const RealProcess ours(sleeperWith("DISPLAY=:4711"));
    const RealProcess theirs(sleeperWith("DISPLAY=:4712"));
    const RealProcess nobodys(sleeperWith("LANG=C"));
    expectInFork([&]() -> std::string {
        const auto lists = [](ProcessId process) {
            return std::ranges::count(Table().table.allProcesses(), process) == 1;
        };
        setenv("DISPLAY", ":4711.0", 1);
        // Until its program runs a process has the environment of this one.
        return waitFor(
                   [&] { return lists(ours.id()) && lists(nobodys.id()) && !lists(theirs.id()); })
                   ? ""
                   : "not the right ones";
    });
}

TEST(LinuxProcessTable, ReadsAProcessThatHidesFromItsOwnUser) {
    SKIP_WITHOUT_RIGHT(getuid() == 0, "be other users");
    expectInFork(
        []() -> std::string {
            const RealProcess hidden([] { prctl(PR_SET_DUMPABLE, 0); });
            Table table;
            const auto all = table.table.allProcesses();
            const auto details = table.reader.details(hidden.id());
            return table.table.executablePath(hidden.id())     ? "it does not hide"
                   : std::ranges::count(all, hidden.id()) == 0 ? "not listed"
                   : !table.table.counters(hidden.id())        ? "no counters"
                   : !details || details->owner != nobody || details->commandLine.empty()
                       ? "no details"
                   : table.signal(hidden.id(), SIGKILL) != 0 ? "cannot be ended"
                                                             : "";
        },
        nobody);
}

TEST(LinuxProcessTable, CountsEndedThreadsAndOnlyMemoryOfItsOwn) {
    constexpr std::size_t mebibyte = 1024 * 1024;
    const std::string program = std::filesystem::read_symlink("/proc/self/exe");
    const RealProcess process([&] {
        std::thread first(burnCpu, std::chrono::milliseconds(60));
        std::thread second(burnCpu, std::chrono::milliseconds(60));
        first.join();
        second.join();
        auto* own = static_cast<char*>(mmap(nullptr, 64 * mebibyte, PROT_READ | PROT_WRITE,
                                            MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        std::fill_n(own, 64 * mebibyte, 'x');
        // Pages of files and shared ones are not the process's own.
        auto* shared = static_cast<char*>(mmap(nullptr, 32 * mebibyte, PROT_READ | PROT_WRITE,
                                               MAP_SHARED | MAP_ANONYMOUS, -1, 0));
        std::fill_n(shared, 32 * mebibyte, 'x');
    });
    Table table;
    const auto openFiles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    const auto before = openFiles();
    table.table.retainCounters({process.id()});
    for (int sample = 0; sample < 2; ++sample) { // Opened, then kept open.
        const auto counters = table.table.counters(process.id());
        ASSERT_TRUE(counters);
        EXPECT_GE(counters->userTime, 120'000'000U);
        EXPECT_LE(counters->userTime, 2'000'000'000U);
        EXPECT_EQ(counters->systemTime, 0U);
        EXPECT_GE(counters->physFootprint, 64 * mebibyte);
        const auto status = table.reader.status(process.id());
        const auto exact = status->rssAnon + status->vmSwap;
        EXPECT_NEAR(static_cast<double>(counters->physFootprint), static_cast<double>(exact),
                    static_cast<double>(mebibyte));
        EXPECT_EQ(openFiles(), before + 1);
    }
    table.table.retainCounters({});
    EXPECT_EQ(openFiles(), before);
}

TEST(LinuxProcessTable, WorksOnWhenDescriptorsAreScarce) {
    expectInFork([]() -> std::string {
        const rlimit few{48, 48};
        setrlimit(RLIMIT_NOFILE, &few);
        Table table;
        std::vector<std::unique_ptr<RealProcess>> processes;
        std::vector<ProcessId> ids;
        for (int count = 0; count < 60; ++count) {
            processes.push_back(std::make_unique<RealProcess>());
            ids.push_back(processes.back()->id());
        }
        table.table.retainCounters(ids);
        for (const ProcessId id : ids) {
            if (!table.table.hold(id) || !table.table.counters(id)) {
                return "not held or not counted: " + std::to_string(id - ids.front());
            }
        }
        for (const ProcessId id : ids) {
            if (!table.table.counters(id) || table.signal(id, SIGKILL) != 0) {
                return "not signalled: " + std::to_string(id - ids.front());
            }
        }
        return dup(STDOUT_FILENO) >= 0 ? "" : "nothing was left for others";
    });
}

/// Writes what /proc tells of a process under another root, with another start time.
void writeRecord(const std::filesystem::path& root, ProcessId process, const std::string& started) {
    const auto folder = root / std::to_string(process);
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "stat")
        << process << " (x) S 2 1 1 0 -1 0 0 0 0 0 0 0 0 0 20 0 1 0 " << started << " 0 0\n";
    std::ofstream(folder / "status")
        << "Uid:\t" << getuid() << "\t" << getuid() << "\t0\t0\nVmRSS:\t20 kB\n";
    std::ofstream(folder / "statm") << "10 5 1 0 0 0 0\n";
}

TEST(ProcessMemory, ForgetsOnlyTheFirstOfThousandsThatEnded) {
    const TempFolder folder;
    const auto record = [&](ProcessId process) { return folder.path() / std::to_string(process); };
    constexpr ProcessId first = 5'000'000; // No process has such an id.
    writeRecord(folder.path(), first - 1, "1000");
    writeRecord(folder.path(), first, "1000");
    const ProcessReader reader(folder.path());
    ProcessMemory memory(reader, 0);
    EXPECT_TRUE(memory.hold(first - 1));
    ProcessId process = first;
    for (; process < first + 3 * static_cast<ProcessId>(ProcessMemory::mostEnded); ++process) {
        ASSERT_TRUE(memory.hold(process));
        std::filesystem::rename(record(process), record(process + 1));
    }
    EXPECT_FALSE(memory.startTime(first));
    EXPECT_TRUE(memory.startTime(process - static_cast<ProcessId>(ProcessMemory::mostEnded)));
    EXPECT_TRUE(memory.startTime(first - 1) && !memory.isGone(first - 1)) << "it runs";
}

TEST(LinuxProcessTable, DoesNotTouchAnotherProcessWithTheSameIdAsRecorded) {
    const RealProcess process;
    const TempFolder folder;
    const auto& name = folder.path();
    writeRecord(name, process.id(), "1000");
    ProcessReader reader(name);
    ProcessMemory memory(reader, 0);

    struct Switch final : ProtectedProcesses {
        bool isProtected(ProcessId) override { return isOn; }

        bool isOn = false;
    } spared;

    LinuxProcessTable table(reader, memory, spared);
    EXPECT_TRUE(table.hold(process.id()));
    EXPECT_EQ(table.sendSignal(process.id(), 0), 0);
    EXPECT_TRUE(table.counters(process.id()));
    writeRecord(name, process.id(), "1001");
    EXPECT_FALSE(table.counters(process.id()));
    EXPECT_EQ(table.sendSignal(process.id(), SIGKILL), -1);
    EXPECT_EQ(errno, ESRCH);
    EXPECT_TRUE(isAlive(process.id()));
    // The id is dead until it is held again.
    writeRecord(name, process.id(), "1000");
    EXPECT_EQ(table.sendSignal(process.id(), SIGKILL), -1);
    EXPECT_TRUE(table.hold(process.id()));
    spared.isOn = true;
    EXPECT_EQ(table.sendSignal(process.id(), SIGKILL), -1);
    EXPECT_EQ(errno, EPERM) << "the guard is asked of every signal";
    EXPECT_TRUE(isAlive(process.id()));
    spared.isOn = false;
    EXPECT_EQ(table.sendSignal(process.id(), SIGKILL), 0);
}

} // namespace
} // namespace calmora
