// SPDX-License-Identifier: MIT
#include "WorkspaceTest.h"

#include "platform/linux/workspace/ActivationRules.h"
#include "platform/linux/workspace/BackgroundScan.h"
#include "support/FileDescriptor.h"
#include "support/Sandbox.h"

#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace calmora {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;
using testing::ElementsAre;
namespace fs = std::filesystem;

/// Writes down what the workspace tells, in order.
struct Notices {
    explicit Notices(LinuxWorkspace& workspace)
        : launched(workspace.onLaunched([this](const auto& a) { note("+", a); })),
          terminated(workspace.onTerminated([this](const auto& a) { note("-", a); })),
          activated(workspace.onActivated([this](const auto& a) { note("*", a); })) {}

    void note(const char* kind, const WorkspaceApplication& application) {
        const bool isRegular = application.activationPolicy == ActivationPolicy::regular;
        heard.push_back(kind + application.localizedName.value_or("?") +
                        (isRegular ? "" : " in the background"));
    }

    [[nodiscard]] bool has(const std::string& notice) const {
        return std::ranges::find(heard, notice) != heard.end();
    }

    std::vector<std::string> heard;
    Subscription launched;
    Subscription terminated;
    Subscription activated;
};

TEST(LinuxWorkspaceTest, TellsWhatStartsAndEndsWithoutPolling) {
    LinuxDesktop machine;
    const pid_t old = machine.shown(machine.client({"--class", "Old"}));
    Notices notices(machine.workspace);
    const pid_t process = machine.client({"--class", "Young"});
    EXPECT_TRUE(pumpUntil(machine.events, [&] {
        return notices.has("+Young") && notices.has("*Young");
    })) << testing::PrintToString(notices.heard);
    EXPECT_FALSE(notices.has("+Old")) << "running applications are not reported";
    EXPECT_EQ(machine.workspace.frontmostApplication()->processIdentifier, process);

    // The window is up: from here on the time counts.
    ::kill(process, SIGKILL);
    const auto killed = steady_clock::now();
    EXPECT_TRUE(pumpUntil(machine.events, [&] { return notices.has("-Young"); }));
    EXPECT_LT(steady_clock::now() - killed, scaled(1s)) << "the scan would take two";

    const pid_t next = machine.client({"--class", "Next"});
    EXPECT_TRUE(pumpUntil(machine.events, [&] { return notices.has("+Next"); }));

    // Back and forth: none, and the same application again, is no activation.
    const auto move = [&](const char* how, pid_t owner) {
        const auto& window = *std::ranges::find(machine.windows.windows(), ProcessId{owner},
                                                &TopLevelWindow::process);
        EXPECT_EQ(machine.desktop.run({"xdotool", how, "--sync", std::to_string(window.id)}), 0);
    };
    move("windowactivate", next);
    EXPECT_TRUE(pumpUntil(machine.events, [&] { return notices.has("*Next"); }));
    notices.heard.clear();
    move("windowactivate", old);
    EXPECT_TRUE(pumpUntil(machine.events, [&] { return notices.has("*Old"); }));
    move("windowminimize", next);
    move("windowminimize", old);
    move("windowactivate", old);
    EXPECT_TRUE(pumpUntilQuiet(machine.events));
    EXPECT_THAT(notices.heard, ElementsAre("*Old"));
    EXPECT_TRUE(pumpUntilQuiet(machine.events, 400ms)) << "an idle desktop wakes nobody";
}

TEST(LinuxWorkspaceTest, BecomingRegularAndCeasingToBeCount) {
    LinuxDesktop machine;
    const pid_t process = machine.client({"--class", "Shy", "--skip-taskbar", "--hide-on-close"});
    EXPECT_TRUE(waitFor([&] { return machine.windowCount(process) == 1; }));
    EXPECT_EQ(machine.policyOf(process), ActivationPolicy::accessory);
    Notices notices(machine.workspace);
    const WindowId window = machine.windows.windows().front().id;
    EXPECT_EQ(machine.desktop.run({"xprop", "-id", std::to_string(window), "-f", "_NET_WM_STATE",
                                   "32a", "-remove", "_NET_WM_STATE"}),
              0);
    EXPECT_TRUE(pumpUntil(machine.events, [&] { return notices.has("+Shy"); }))
        << testing::PrintToString(notices.heard);
    EXPECT_EQ(machine.desktop.run({"xprop", "-id", std::to_string(window), "-f", "WM_CLASS", "8s",
                                   "-set", "WM_CLASS", "Bold"}),
              0);
    EXPECT_TRUE(pumpUntil(machine.events, [&] { return notices.has("+Bold"); })) << "a late name";
    EXPECT_TRUE(machine.windows.requestClose(window, process));
    machine.windows.flush();
    EXPECT_TRUE(pumpUntil(machine.events, [&] { return notices.has("-Bold"); }));
    EXPECT_EQ(machine.policyOf(process), ActivationPolicy::accessory) << "it still runs";
    ::kill(process, SIGKILL);
    EXPECT_TRUE(pumpUntil(machine.events, [&] { return notices.has("-Bold in the background"); }))
        << "the end of what has no window is noticed too";
}

TEST(LinuxWorkspaceTest, FindsInstalledAgentsAndNotTheirHelpers) {
    LinuxDesktop machine;
    const std::string program = machine.program("tidy-agent");
    machine.install("org.example.Tidy",
                    "Name=Tidy Agent\nCategories=Utility;Clock;\nExec=" + program + " %U");
    machine.install("org.example.Hosted", "Name=Hosted\nExec=vi\nTerminal=true");
    // The agent has a helper that runs the same program.
    const pid_t agent = machine.desktop.start(
        {"/bin/sh", "-c", program + " --helper & exec " + program + " --helper"});
    EXPECT_TRUE(waitFor([&] { return machine.listed(agent).has_value(); }))
        << machine.desktop.log();
    EXPECT_EQ(machine.policyOf(agent), ActivationPolicy::accessory);
    EXPECT_EQ(machine.listed(agent)->localizedName, "Tidy Agent");
    const pid_t helper = descendantOf(agent, 1);
    EXPECT_TRUE(waitFor([&] { return machine.reader.executable(helper) == program; }));
    const auto all = [&] {
        return machine.workspace.runningApplicationsWithBundleIdentifier("org.example.Tidy").size();
    };
    EXPECT_EQ(all(), 1U);
    // The X server is not the only display, and where there is none, its programs are others'.
    ::setenv("WAYLAND_DISPLAY", "wayland-ours", 1);
    const pid_t onWayland = machine.desktop.start(
        {program, "--helper"}, {{"DISPLAY", ":32767"}, {"WAYLAND_DISPLAY", "wayland-ours"}});
    EXPECT_TRUE(waitFor([&] { return machine.listed(onWayland).has_value(); }));
    BackgroundScan withoutServer(machine.reader);
    withoutServer.scan(machine.installed, "");
    EXPECT_THAT(withoutServer.agents({}), ElementsAre(onWayland)) << "not one of another session";
    ::unsetenv("WAYLAND_DISPLAY");
    machine.desktop.end(onWayland);
    const auto installed = machine.workspace.installedApplication("org.example.Tidy");
    ASSERT_TRUE(installed);
    EXPECT_EQ(installed->displayName, "Tidy Agent");
    EXPECT_EQ(installed->categories, (std::vector<std::string>{"Utility", "Clock"}));
    EXPECT_FALSE(installed->needsTerminal);
    EXPECT_TRUE(machine.workspace.installedApplication("org.example.Hosted")->needsTerminal);
    EXPECT_FALSE(machine.workspace.installedApplication("org.example.Absent"));

    // Somebody listens: one that starts is found within a scan.
    Notices notices(machine.workspace);
    machine.desktop.end(agent);
    const pid_t next = machine.desktop.start({program, "--helper"});
    EXPECT_TRUE(pumpUntil(machine.events, [&] {
        return notices.has("-Tidy Agent in the background") &&
               notices.has("+Tidy Agent in the background");
    })) << testing::PrintToString(notices.heard);
    // What is installed meanwhile takes nothing off it.
    EXPECT_TRUE(pumpUntil(machine.events, [&] { return machine.listed(next).has_value(); }));
    machine.install("org.example.Other", "Hidden=true");
    EXPECT_FALSE(waitFor([&] { return !machine.listed(next); }, 300ms));
}

TEST(LinuxWorkspaceTest, TellsTheDesktopFileThatStartsAnApplicationAgain) {
    LinuxDesktop machine;

    const struct {
        const char* id;
        const char* lines;
        bool hasWindow;
        std::optional<std::string> desktopId;
    } cases[] = {
        {"firefox-esr", "", true, "firefox-esr"}, // Listed under its well-known identifier.
        {"unseen", "NoDisplay=true", true, "unseen"},  {"agent", "", false, "agent"},
        {"unseen-agent", "NoDisplay=true", false, {}}, {"none", "Hidden=true", true, {}},
    };

    for (const auto& c : cases) {
        machine.install(c.id, "Name=x\nExec=" + machine.program(c.id) + '\n' + c.lines);
    }
    for (const auto& c : cases) {
        const pid_t process = machine.desktop.start(
            {machine.program(c.id), c.hasWindow ? "--class" : "--helper", c.id});
        if (!c.hasWindow) {
            machine.bus.items = {process};
        }
        // One with an icon in the tray is listed before it has become its program.
        EXPECT_TRUE(waitFor([&] {
            const auto application = machine.listed(process);
            return application && application->desktopId == c.desktopId &&
                   (!c.hasWindow || machine.isRegular(process));
        })) << c.id;
    }
}

TEST(LinuxWorkspaceTest, ListsNothingThatTheSystemStartsWithTheSession) {
    LinuxDesktop machine;
    const auto install = [&](const char* folder, const std::string& name) {
        std::string program = machine.program(name);
        machine.install("org.example." + name, "Name=x\nExec=" + program + " --helper", folder);
        return program;
    };
    const std::string keeper = install("system/autostart", "keeper");
    const std::string mine = install("config/autostart", "mine");
    const pid_t users = machine.desktop.start({mine, "--helper"});
    const pid_t quiet = machine.desktop.start({keeper, "--helper"});
    const pid_t withIcon = machine.desktop.start({keeper, "--helper"});
    const pid_t withWindow = machine.shown(machine.desktop.start({keeper, "--class", "Keeper"}));
    machine.bus.items = {withIcon};
    EXPECT_TRUE(waitFor([&] { return machine.listed(users).has_value(); })) << "the user's own";
    for (const pid_t process : {quiet, withIcon}) {
        EXPECT_FALSE(machine.listed(process));
        EXPECT_EQ(machine.table.sendSignal(process, SIGKILL), -1);
        EXPECT_FALSE(machine.quitter.quitApp(process, true));
        EXPECT_TRUE(machine.isRunning(process));
    }
    EXPECT_TRUE(machine.isRegular(withWindow));
    EXPECT_TRUE(machine.quitter.quitApp(withWindow, true));
    EXPECT_TRUE(machine.quitter.quitApp(users, true));
    EXPECT_TRUE(machine.isRunning(quiet) && machine.isRunning(withIcon)) << "of the same program";
}

TEST(LinuxWorkspaceTest, ForgetsAVerdictWhenTheSessionTakesItsNames) {
    LinuxDesktop machine;
    const pid_t process = machine.shown(machine.client({"--class", "Prompter"}));
    machine.bus.carriers = {process};
    EXPECT_FALSE(machine.listed(process));
    machine.bus.carriers.clear();
    EXPECT_TRUE(machine.listed(process));
}

TEST(LinuxWorkspaceTest, AHelperThatWasLookedAtBeforeItStartedIsNoApplication) {
    LinuxDesktop machine;
    const fs::path folder = machine.desktop.home() / "Apps" / "tidy";
    const std::string helperFile = machine.program("Apps/tidy/helper");
    // A shell by another name: it has children of its own program that become helpers.
    fs::copy_file("/bin/dash", folder / "tidy");
    machine.install("tidy", "Name=Tidy\nExec=" + (folder / "tidy").string());
    const std::string go = machine.desktop.home() / "go";
    ASSERT_EQ(::mkfifo(go.c_str(), 0600), 0);
    // Open until the end, or a reader that comes late would wait for ever.
    const FileDescriptor fifo(::open(go.c_str(), O_RDWR | O_CLOEXEC));
    const pid_t app = machine.desktop.start({folder / "tidy", "-c",
                                             "( (read word < " + go + "; exec " + helperFile +
                                                 " --helper) & read word < " + go +
                                                 ") & while :; do sleep 1; done"});
    const pid_t between = descendantOf(app, 1);
    const pid_t helper = descendantOf(between, 1);
    EXPECT_TRUE(machine.listed(app));
    EXPECT_FALSE(machine.listed(helper)) << "the application is above it";
    ASSERT_EQ(::write(fifo.get(), "go\ngo\n", 6), 6);
    EXPECT_TRUE(waitFor([&] {
        return machine.reader.executable(helper) == helperFile &&
               machine.reader.stat(helper)->parent == ::getpid();
    }));
    EXPECT_FALSE(machine.listed(helper)) << "nothing is above it now, but it is another program";
    EXPECT_EQ(machine.workspace.runningApplication(app)->bundleURL(), folder.string() + "/");
}

} // namespace
} // namespace calmora
