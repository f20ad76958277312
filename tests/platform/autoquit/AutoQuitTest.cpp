#include "autoquit/AutoQuitManager.h"

#include "WorkspaceTest.h"
#include "settings/AppSettings.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <thread>

namespace calmora {
namespace {

using namespace std::chrono_literals;

/// The real clock with a shifted wall clock; counts the time slept.
struct ShiftedClock final : Clock {
    [[nodiscard]] std::chrono::system_clock::time_point now() const override {
        return machine.now() + shift;
    }

    [[nodiscard]] std::chrono::nanoseconds ticks() const override { return machine.ticks(); }

    void sleep(std::chrono::microseconds duration) override {
        slept += duration;
        machine.sleep(duration);
    }

    LinuxClock machine;
    std::chrono::seconds shift{0};
    std::chrono::microseconds slept{0};
};

struct AutoQuitOnADesktop : testing::Test {
    /// Starts a program and waits until it has come to the front.
    pid_t comesToFront(pid_t process) {
        machine.shown(process);
        const std::string identifier = machine.listed(process)->bundleIdentifier.value_or("");
        EXPECT_TRUE(pumpUntil(machine.events, [&] {
            return manager.activityTracker().lastActiveTime().contains(identifier);
        })) << identifier;
        return process;
    }

    /// Installs an application whose windows have its name as class.
    void install(const std::string& id, const std::string& name) {
        const auto entries = machine.desktop.home() / "data/applications";
        std::filesystem::create_directories(entries);
        std::ofstream(entries / (id + ".desktop"))
            << "[Desktop Entry]\nType=Application\nName=" << name
            << "\nExec=/bin/true\nStartupWMClass=" << name << '\n';
    }

    /// One pass; returns the time slept.
    std::chrono::microseconds check() {
        clock.slept = {};
        manager.checkAndQuitInactiveApps();
        return clock.slept;
    }

    /// One pass after enough time for a busy process to use the CPU.
    std::chrono::microseconds laterCheck() {
        std::this_thread::sleep_for(500ms);
        return check();
    }

    LinuxDesktop machine{{.sessionBus = true}};
    ShiftedClock clock;
    AppSettings settings{machine.rest.defaults};
    FakeUserNotifications notifications;
    FakeInputGate input;
    AutoQuitManager manager{settings,
                            {machine.workspace, machine.table, clock, machine.rest.runLoop,
                             machine.rest.bundle, machine.rest.text, machine.rest.strings,
                             machine.rest.sounds, machine.rest.alerts},
                            notifications,
                            input};
};

TEST_F(AutoQuitOnADesktop, QuitsOnlyTheIdleApplication) {
    install("com.jetbrains.fleet", "Busy");
    manager.activityTracker().startTracking();
    const pid_t idle = comesToFront(machine.desktop.start({"xcalc"}));
    const pid_t editor = comesToFront(machine.desktop.start({"mousepad"}));
    EXPECT_EQ(machine.desktop.run({"xdotool", "search", "--sync", "--onlyvisible", "--class",
                                   "Mousepad", "windowfocus", "--sync", "type", "unsaved words"}),
              0);
    EXPECT_TRUE(waitFor([&] {
        return machine.desktop.run({"xdotool", "search", "--name", "^\\*"}) == 0;
    })) << machine.desktop.log();
    const pid_t busy =
        comesToFront(machine.client({"--class", "Busy", "--ignore-close", "--busy"}));
    EXPECT_EQ(machine.listed(busy)->bundleIdentifier, "com.jetbrains.fleet");
    const std::size_t editorWindows = machine.windowCount(editor);

    settings.autoQuitMinutes.set(15);
    settings.autoQuitEnabled.set(true);
    EXPECT_EQ(check(), 0us) << "nothing is idle yet";
    settings.autoQuitEnabled.set(false);
    clock.shift = 16min;
    EXPECT_EQ(check(), 0us);
    settings.autoQuitEnabled.set(true);
    check();
    EXPECT_FALSE(machine.isRunning(idle));
    EXPECT_EQ(machine.windowCount(editor), editorWindows) << "the first pass only samples";
    EXPECT_TRUE(waitFor([&] {
        laterCheck();
        return machine.windowCount(editor) > editorWindows;
    }));
    ASSERT_EQ(notifications.added.size(), 1U);
    EXPECT_EQ(notifications.added[0].body, "XCalc was quit after 15 minutes");
    EXPECT_TRUE(machine.isRunning(editor));
    EXPECT_EQ(machine.windowCount(editor), editorWindows + 1) << "it asks about the text";
    EXPECT_TRUE(machine.isRunning(busy));

    EXPECT_EQ(laterCheck(), 0us) << "neither the one that asks nor the busy one is asked again";
    EXPECT_EQ(machine.windowCount(editor), editorWindows + 1);
    EXPECT_EQ(manager.activityTracker().lastActiveTime().size(), 2U) << "both stay eligible";
    const pid_t stopped = comesToFront(machine.client({"--class", "Stopped"}));
    ASSERT_EQ(kill(stopped, SIGSTOP), 0);
    clock.shift *= 2;
    const auto slept = laterCheck();
    EXPECT_GT(slept, 0us) << "it was asked";
    EXPECT_LE(slept, AutoQuitManager::quitTimeout + AppQuitter::pollInterval)
        << "and not waited for any longer";
    EXPECT_TRUE(machine.isRunning(stopped));
    EXPECT_EQ(notifications.added.size(), 1U);
}

} // namespace
} // namespace calmora
