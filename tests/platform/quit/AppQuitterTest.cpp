#include "model/AppQuitter.h"

#include "fakes/FakePlatform.h"
#include "platform/linux/proc/LinuxClock.h"
#include "platform/linux/proc/LinuxProcessTable.h"
#include "platform/quit/RealProcesses.h"

#include <gtest/gtest.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace calmora {
namespace {

using namespace std::chrono_literals;

/// An application that is asked by SIGTERM.
class SignalledApplication final : public RunningApplication {
  public:
    SignalledApplication(ProcessTable& table, ProcessId process, std::string folder)
        : table_(table), process_(process), folder_(std::move(folder)) {
        table_.hold(process_);
    }

    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override { return {}; }

    [[nodiscard]] std::optional<std::string> bundleURL() const override { return folder_; }

    [[nodiscard]] std::optional<std::filesystem::path> executableURL() const override { return {}; }

    [[nodiscard]] ProcessId processIdentifier() const override { return process_; }

    [[nodiscard]] bool isTerminated() const override { return !send(0); }

    bool terminate() override { return send(SIGTERM); }

    bool forceTerminate() override { return send(SIGTERM); }

  private:
    [[nodiscard]] bool send(int signal) const { return table_.sendSignal(process_, signal) == 0; }

    ProcessTable& table_;
    ProcessId process_;
    std::string folder_;
};

struct AppQuitterProcessesTest : testing::Test {
    FakePlatform fakes;
    ProcessReader reader;
    ProcessMemory memory{reader};
    LinuxProcessTable table{reader, memory};
    LinuxClock clock;
    RealProcesses processes;

    /// Force-quits or quits the application of a process whose bundle is `folder`.
    bool quit(ProcessId process, const std::string& folder, bool force) {
        const Platform platform{fakes.workspace, table,        clock,
                                fakes.runLoop,   fakes.bundle, fakes.text,
                                fakes.strings,   fakes.sounds, fakes.alerts};
        AppQuitterOperations operations = platformOperations(platform);
        operations.lookupApp = [&](ProcessId wanted) {
            return std::make_unique<SignalledApplication>(table, wanted, processes.folder(folder));
        };
        const auto start = std::chrono::steady_clock::now();
        const bool isGone = AppQuitter(std::move(operations), clock).quitApp(process, force);
        took = std::chrono::steady_clock::now() - start;
        return isGone;
    }

    std::chrono::steady_clock::duration took{};
};

TEST_F(AppQuitterProcessesTest, ForcesOutEveryProcessOfThePrivateFolder) {
    const ProcessId main = processes.start({.folder = "App"});
    const ProcessId stubborn = processes.start({.folder = "App/lib", .ignoresTerm = true});
    const ProcessId orphan = processes.start({.folder = "App/lib", .isOrphan = true});
    const ProcessId sibling = processes.start({.folder = "App2"});
    EXPECT_TRUE(quit(main, "App", true));
    EXPECT_LT(took, 1500ms);
    processes.reap();
    EXPECT_FALSE(processes.isRunning(main));
    EXPECT_FALSE(processes.isRunning(stubborn));
    EXPECT_FALSE(processes.isRunning(orphan));
    EXPECT_TRUE(processes.isRunning(sibling));
}

TEST_F(AppQuitterProcessesTest, CountsAZombieAsGone) {
    const ProcessId process = processes.start({.folder = "App"});
    EXPECT_TRUE(quit(process, "App", false));
    EXPECT_LT(took, 1s);
    EXPECT_EQ(kill(process, 0), 0) << "nobody has reaped it";
}

TEST_F(AppQuitterProcessesTest, KillsAStoppedProcessOnlyByForce) {
    const ProcessId process = processes.start({.folder = "App"});
    kill(process, SIGSTOP);
    EXPECT_EQ(waitpid(process, nullptr, WUNTRACED), process);
    EXPECT_FALSE(quit(process, "App", false));
    EXPECT_TRUE(processes.isRunning(process));
    EXPECT_TRUE(quit(process, "App", true));
    EXPECT_LT(took, 1600ms);
}

TEST_F(AppQuitterProcessesTest, LeavesOtherUsersAlone) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can start a process of another user";
    }
    const ProcessId process = processes.start({.folder = "App", .isForeign = true});
    EXPECT_FALSE(quit(process, "App", false));
    EXPECT_FALSE(quit(process, "App", true));
    EXPECT_TRUE(processes.isRunning(process));
}

} // namespace
} // namespace calmora
