// SPDX-License-Identifier: MIT
#include "WorkspaceTest.h"

#include <csignal>
#include <future>
#include <sys/wait.h>
#include <unistd.h>

namespace calmora {
namespace {

TEST(QuittingTest, AsksEachWindowThatTakesPartOnce) {
    LinuxDesktop machine;
    const pid_t process = machine.client({"--windows", "3", "--skip-taskbar"});
    const pid_t visible = machine.shown(machine.client({"--windows", "2"}));
    EXPECT_TRUE(waitFor(
        [&] { return machine.windowCount(process) == 3 && machine.windowCount(visible) == 2; }));
    EXPECT_EQ(machine.policyOf(process), ActivationPolicy::accessory);
    EXPECT_TRUE(machine.quitter.quitApp(visible, false));
    EXPECT_TRUE(machine.quitter.quitApp(process, false));
    EXPECT_EQ(machine.desktop.exitStatus(process), 0) << "it ended by itself";
}

TEST(QuittingTest, LeavesAQuestionAlone) {
    for (const char* manager : {"openbox", ""}) {
        LinuxDesktop machine({.windowManager = manager});
        const pid_t process = machine.shown(machine.client({"--ask-on-close"}));
        const auto application = machine.workspace.runningApplication(process);
        ASSERT_TRUE(application);
        EXPECT_TRUE(application->terminate());
        EXPECT_TRUE(waitFor([&] { return machine.windowCount(process) == 2; }));
        EXPECT_FALSE(machine.workspace.runningApplication(process)->terminate());
        const std::string window = std::to_string(machine.windows.windows().front().id);
        const std::string wasDismissed =
            "xprop -id " + window + " CALMORA_TEST_DISMISSED | grep -q '= 1'";
        EXPECT_NE(machine.desktop.run({"/bin/sh", "-c", wasDismissed}), 0);
        EXPECT_EQ(machine.windowCount(process), 2U);
    }
    // One that was open before anybody asked: it holds the application up if it is modal.
    LinuxDesktop machine;
    for (const char* kind : {"--modal", "--modeless"}) {
        const pid_t process =
            machine.shown(machine.client({"--transient", "--ignore-close", kind}));
        EXPECT_TRUE(waitFor([&] { return machine.windowCount(process) == 2; }));
        const auto application = machine.workspace.runningApplication(process);
        EXPECT_TRUE(application->terminate());
        EXPECT_EQ(application->isAsking(), std::string(kind) == "--modal");
    }
}

TEST(QuittingTest, EndsByTheSignalWhatCannotBeAsked) {
    for (const char* manager : {"openbox", "xfwm4", "9wm", ""}) {
        SCOPED_TRACE(manager);
        LinuxDesktop machine({.windowManager = manager});
        const pid_t deaf = machine.shown(machine.client({"--no-delete"}));
        const WindowId window = machine.windows.windows().front().id;
        // Before the other ends: 9wm seems to lose a window that comes while it withdraws another.
        const pid_t polite = machine.shown(machine.client({"--class", "Polite"}));
        EXPECT_FALSE(machine.windows.requestClose(window, deaf)) << "closing it would kill it";
        EXPECT_TRUE(machine.quitter.quitApp(deaf, false));
        EXPECT_EQ(machine.desktop.exitStatus(deaf), SIGTERM) << "and not by a broken connection";
        EXPECT_TRUE(waitFor([&] {
            return !testing::Value(machine.windows.windows(),
                                   testing::Contains(testing::Field(&TopLevelWindow::id, window)));
        })) << "its window goes with it";

        EXPECT_TRUE(machine.quitter.quitApp(polite, false));
        EXPECT_EQ(machine.desktop.exitStatus(polite), 0) << "it ended by itself";
    }
    LinuxDesktop machine;
    const pid_t stubborn = machine.shown(machine.client({"--ignore-close", "--ignore-term"}));
    EXPECT_FALSE(machine.quitter.quitApp(stubborn, false));
    EXPECT_TRUE(machine.isRunning(stubborn));
    EXPECT_TRUE(machine.quitter.quitApp(stubborn, true));
    EXPECT_EQ(machine.desktop.exitStatus(stubborn), SIGKILL);
}

TEST(QuittingTest, EndsWhatHidesInTheTray) {
    LinuxDesktop machine({.tray = true});
    const auto inTray = [&](pid_t process) {
        machine.shown(process);
        EXPECT_TRUE(waitFor([&] {
            return testing::Value(machine.windows.trayIconProcesses(), testing::Contains(process));
        })) << machine.desktop.log();
        return process;
    };
    const pid_t hiding = inTray(machine.client({"--tray", "--hide-on-close"}));
    EXPECT_TRUE(machine.quitter.quitApp(hiding, false));
    EXPECT_EQ(machine.desktop.exitStatus(hiding), SIGTERM);

    const pid_t asking = inTray(machine.client({"--tray", "--ask-on-close"}));
    EXPECT_FALSE(machine.quitter.quitApp(asking, false));
    EXPECT_TRUE(machine.isRunning(asking));
    EXPECT_EQ(machine.windowCount(asking), 2U);

    // A status item on the bus counts as well, and a player is asked over the bus alone.
    const pid_t item = machine.shown(machine.client({"--hide-on-close"}));
    machine.bus.items = {item};
    EXPECT_TRUE(machine.quitter.quitApp(item, false));
    const pid_t player = machine.shown(machine.client());
    machine.bus.players = {player};
    EXPECT_FALSE(machine.quitter.quitApp(player, false)) << "this bus only pretends";
    EXPECT_THAT(machine.bus.quits, testing::Contains(player));
    EXPECT_TRUE(machine.isRunning(player));

    // Without a tray icon an application that stays without windows is left alone, and is still
    // an application.
    const pid_t server = machine.shown(machine.client({"--hide-on-close"}));
    EXPECT_FALSE(machine.quitter.quitApp(server, false));
    EXPECT_EQ(machine.policyOf(server), ActivationPolicy::accessory);
}

TEST(QuittingTest, ForcesWhatIsStopped) {
    LinuxDesktop machine;
    const pid_t process = machine.shown(machine.client());
    ::kill(process, SIGSTOP);
    EXPECT_FALSE(machine.quitter.quitApp(process, false));
    EXPECT_TRUE(machine.isRunning(process));
    EXPECT_TRUE(machine.quitter.quitApp(process, true));
    EXPECT_EQ(machine.desktop.exitStatus(process), SIGTERM) << "it was continued to take it";
}

TEST(QuittingTest, ForcesThePrivateFolderWithAllHelpers) {
    LinuxDesktop machine;
    const std::string folder = machine.desktop.home() / "Apps/paintbox/";
    // A neighbour whose name begins alike.
    const pid_t neighbour =
        machine.desktop.start({machine.program("Apps/paintbox-tools/neighbour"), "--helper"});
    const std::string helper = machine.program("Apps/paintbox/paintbox-helper");
    const pid_t process =
        machine.shown(machine.desktop.start({machine.program("Apps/paintbox/paintbox"), "--class",
                                             "Paintbox", "--child", helper, "--orphan", helper}));
    const auto helpers = [&] {
        return std::ranges::count_if(machine.table.allProcesses(), [&](ProcessId candidate) {
            return machine.table.executablePath(candidate) == helper &&
                   machine.isRunning(candidate);
        });
    };
    EXPECT_TRUE(waitFor([&] { return helpers() == 2; }));
    EXPECT_EQ(machine.workspace.runningApplication(process)->bundleURL(), folder);
    EXPECT_TRUE(machine.quitter.quitApp(process, true));
    EXPECT_FALSE(machine.isRunning(process));
    EXPECT_EQ(helpers(), 0);
    EXPECT_TRUE(machine.isRunning(neighbour));
}

TEST(QuittingTest, NeverTouchesALaterProcessWithTheSameId) {
    SKIP_WITHOUT_RIGHT(canChooseProcessIds(), "choose process ids");
    LinuxDesktop machine;
    const pid_t process = machine.shown(machine.client());
    const auto held = machine.workspace.runningApplication(process);
    ASSERT_TRUE(held);
    machine.desktop.end(process);
    const auto later = processWithId(process);
    ASSERT_TRUE(later);
    EXPECT_TRUE(held->isTerminated());
    EXPECT_FALSE(held->terminate());
    EXPECT_FALSE(held->forceTerminate());
    EXPECT_FALSE(machine.quitter.quitApp(process, true));
    EXPECT_EQ(machine.table.sendSignal(process, SIGKILL), -1);
    EXPECT_EQ(::waitpid(process, nullptr, WNOHANG), 0) << "the later process lives";
}

TEST(QuittingTest, NeverTouchesAnotherApplicationThatGotAnIdSinceItWasListed) {
    SKIP_WITHOUT_RIGHT(canChooseProcessIds(), "choose process ids");
    for (const bool force : {false, true}) {
        untilFree([&] {
            LinuxDesktop machine;
            const pid_t process = machine.shown(machine.client());
            machine.desktop.end(process);
            const auto later = processWithId(process, [&] {
                machine.desktop.enter();
                ::execl(windowClient().c_str(), "client", nullptr);
            });
            if (later) {
                EXPECT_TRUE(waitFor([&] { return machine.windowCount(process) == 1; }));
                EXPECT_FALSE(machine.quitter.quitApp(process, force));
                EXPECT_EQ(machine.windowCount(process), 1U);
                EXPECT_EQ(::waitpid(process, nullptr, WNOHANG), 0) << "it lives";
            }
            return later != nullptr;
        });
    }
}

TEST(QuittingTest, NeverTouchesAProcessThatGetsTheIdOfAVictimMeanwhile) {
    SKIP_WITHOUT_RIGHT(canChooseProcessIds(), "choose process ids");
    for (const bool isTarget : {true, false}) {
        untilFree([&] {
            LinuxDesktop machine;
            const pid_t victim = machine.shown(machine.client());
            const pid_t deaf = machine.shown(machine.client({"--ignore-term", "--ignore-close"}));
            std::promise<std::unique_ptr<RealProcess>> later;
            std::promise<void> isOver;
            // The thread that has made a process must not end before it.
            std::thread maker([&] {
                ::waitpid(victim, nullptr, 0);
                later.set_value(processWithId(victim));
                isOver.get_future().wait();
            });
            EXPECT_TRUE(machine.quitter.quitApp(isTarget ? victim : deaf, true));
            EXPECT_FALSE(machine.isRunning(deaf)) << "for which the quit waits";
            const auto process = later.get_future().get();
            if (process) {
                EXPECT_EQ(::waitpid(victim, nullptr, WNOHANG), 0) << "the later process lives";
            }
            isOver.set_value();
            maker.join();
            return process != nullptr;
        });
    }
}

} // namespace
} // namespace calmora
