// SPDX-License-Identifier: MIT
// Windows whose ids, or the ids of whose owners, pass on while nobody looks.
#include "WorkspaceTest.h"

#include "support/SeenWindows.h"
#include "support/Sockets.h"

#include <csignal>

namespace calmora {
namespace {

/// A desktop whose windows are followed, but whose event loop does not turn: as while an alert is
/// open or something is being quit.
class WindowOwnersTest : public testing::Test {
  protected:
    /// Waits until this window is there and belongs to the process; with 0, until it is gone.
    bool passedTo(WindowId window, pid_t process) {
        return waitFor([&] {
            const auto& windows = observer.windows();
            const auto found = std::ranges::find(windows, window, &TopLevelWindow::id);
            return found == windows.end() ? process == 0 : found->process == process;
        });
    }

    LinuxDesktop machine;
    EventPoll unused;
    X11WindowSystem observer{unused, machine.desktop.display()};
    const Subscription following = machine.workspace.onLaunched([](const auto&) {});
};

TEST_F(WindowOwnersTest, AnEditorThatWasStartedAgainIsAsked) {
    const pid_t first = machine.shown(machine.client());
    const WindowId window = windowOf(machine.windows, first).id;
    machine.desktop.end(first);
    const pid_t second = machine.client({"--ask-on-close"});
    ASSERT_TRUE(passedTo(window, second));
    machine.bus.items = {second};
    EXPECT_TRUE(machine.listed(second));
    EXPECT_FALSE(machine.quitter.quitApp(second, false));
    EXPECT_FALSE(machine.desktop.exitStatus(second)) << "it was signalled";
    EXPECT_EQ(machine.windowCount(second), 2U) << "it asks";
}

TEST_F(WindowOwnersTest, AWindowThatPassedOnIsNotClosed) {
    // Once the window manager is slow as well: then nothing has told of the change so far.
    for (const bool isSlow : {false, true}) {
        const pid_t first = machine.shown(machine.client({"--hang-up"}));
        const WindowId window = windowOf(machine.windows, first).id;
        if (isSlow) {
            ::kill(machine.desktop.windowManager(), SIGSTOP);
        }
        ::kill(first, SIGUSR1);
        EXPECT_TRUE(passedTo(window, 0));
        const pid_t second = machine.client({"--ask-on-close"});
        ASSERT_TRUE(passedTo(window, second));
        EXPECT_TRUE(machine.quitter.quitApp(first, false));
        EXPECT_EQ(machine.desktop.exitStatus(first), SIGTERM) << "it has no window";
        ::kill(machine.desktop.windowManager(), SIGCONT);
        machine.shown(machine.client()); // Waits until the manager has caught up.
        EXPECT_EQ(machine.windowCount(second), 1U) << "it was asked to close";
        EXPECT_FALSE(machine.desktop.exitStatus(second));
    }
}

TEST_F(WindowOwnersTest, AStrangerWithTheOwnersIdIsNoOwner) {
    SKIP_WITHOUT_RIGHT(canChooseProcessIds(), "choose process ids");
    const pid_t tray = machine.desktop.start({"trayer", "--edge", "top"});
    EXPECT_TRUE(waitFor([&] {
        return testing::Value(machine.windows.displayProcesses(), testing::Contains(tray));
    }));
    const pid_t owner = machine.shown(machine.client({"--hand-over", "--pid", "0", "--tray"}));
    EXPECT_TRUE(waitFor([&] { return !machine.windows.trayIconProcesses().empty(); }));
    const std::size_t windows = observer.windows().size();
    machine.desktop.end(owner);
    // Start times are told in steps of this clock; no process id comes back within one.
    EXPECT_TRUE(waitFor([seen = ticksNow()] { return ticksNow() > seen; }));
    const auto stranger = processWithId(owner);
    ASSERT_TRUE(stranger);
    EXPECT_EQ(machine.windowCount(owner), 0U);
    EXPECT_TRUE(machine.windows.trayIconProcesses().empty());
    EXPECT_TRUE(waitFor([&] { return !machine.listed(owner); }));
    EXPECT_EQ(observer.windows().size(), windows) << "its window and icon are still there";
}

TEST_F(WindowOwnersTest, AClaimIsNoReasonForASignal) {
    // The process that connected ends, and its window names another one.
    const auto claimant = [&](const std::string& name, std::vector<std::string> options) {
        options.insert(options.end(), {"--hand-over", "--instance", name});
        const std::size_t before = observer.windows().size();
        const pid_t first = machine.client(options);
        EXPECT_TRUE(waitFor([&] { return observer.windows().size() > before; }));
        machine.desktop.end(first);
        return machine.windows.windows().back();
    };
    const TopLevelWindow deaf = claimant("calmora_window_client", {"--no-delete"});
    ASSERT_TRUE(deaf.process);
    EXPECT_TRUE(machine.isRegular(*deaf.process));
    EXPECT_FALSE(machine.quitter.quitApp(*deaf.process, false));
    EXPECT_TRUE(machine.isRunning(*deaf.process));

    const TopLevelWindow polite = claimant("calmora_window_client", {});
    ASSERT_TRUE(polite.process);
    EXPECT_TRUE(machine.isRegular(*polite.process));
    EXPECT_TRUE(machine.quitter.quitApp(*polite.process, false));

    const pid_t victim = machine.client({"--helper"});
    EXPECT_FALSE(claimant("other", {"--pid", std::to_string(victim)}).process);
    EXPECT_FALSE(machine.listed(victim));
}

TEST_F(WindowOwnersTest, WhatMayHaveWindowsElsewhereIsNotSignalled) {
    const pid_t deaf = machine.shown(machine.client({"--no-delete"}));
    const pid_t polite = machine.shown(machine.client());
    const pid_t hiding = machine.shown(machine.client({"--hide-on-close"}));
    machine.bus.items = {hiding};
    machine.waylandDisplay = "wayland-7";
    EXPECT_TRUE(machine.windows.coversAllWindows()) << "nobody is there";
    const FileDescriptor compositor = listeningAt(machine.desktop.home() / "run/wayland-7");

    EXPECT_FALSE(machine.quitter.quitApp(deaf, false));
    EXPECT_TRUE(machine.isRunning(deaf));
    EXPECT_FALSE(machine.quitter.quitApp(hiding, false)) << "closed, and may live elsewhere";
    EXPECT_TRUE(machine.isRunning(hiding));
    EXPECT_FALSE(machine.workspace.runningApplication(hiding)->terminate()) << "in the tray alone";
    EXPECT_TRUE(machine.quitter.quitApp(polite, false)) << "it could be asked";
    EXPECT_TRUE(machine.quitter.quitApp(deaf, true)) << "force asks nobody";
}

} // namespace
} // namespace calmora
