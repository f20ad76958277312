// SPDX-License-Identifier: MIT
// Windows whose processes the compositor does not tell, with real programs under sway.
#include "platform/wayland/CompositorWindows.h"

#include "WorkspaceTest.h"

#include <csignal>

namespace calmora {
namespace {

using testing::ElementsAre;
using namespace std::chrono_literals;

TEST(ToplevelWindowSystem, NamesOwnersOnlyWhereThereIsNoDoubt) {
    VirtualDesktop desktop{{.sway = true}};
    desktop.enter();
    EventPoll events;
    const auto make = [&] {
        return makeCompositorWindows(events, [](const auto& id) { return std::vector{id}; });
    };
    const auto sway = make();
    ::setenv("SWAYSOCK", "/nowhere", 1);
    const auto compositor = make();
    ::unsetenv("WAYLAND_DISPLAY");
    EXPECT_EQ(make(), nullptr);
    ASSERT_TRUE(sway && compositor);
    WindowSystem& toplevels = *compositor;
    X11WindowSystem x11(events, desktop.display(),
                        [&](const char* name) { return desktop.variable(name); });
    CompositeWindowSystem windows({&x11, &toplevels});
    EXPECT_THAT(windows.displayProcesses(), testing::Contains(desktop.server()));
    const auto count = [&] { return windows.windows().size(); };
    const auto of = [&](const char* name) {
        std::vector<TopLevelWindow> result;
        std::ranges::copy_if(windows.windows(), std::back_inserter(result),
                             [&](const auto& window) { return window.className == name; });
        return result;
    };

    int changes = 0;
    const auto listening = windows.onWindowsChanged([&] { ++changes; });
    const pid_t foot = desktop.start({"foot", "sleep", "600"});
    EXPECT_TRUE(pumpUntil(events, [&] { return changes > 0 && count() == 1; })) << desktop.log();
    EXPECT_EQ(of("foot").at(0).process, foot);
    EXPECT_EQ(of("foot").at(0).certainty, ProcessCertainty::claimed);
    EXPECT_EQ(sway->windows().at(0).certainty, ProcessCertainty::certain) << "it is preferred";

    // Another client without a window brings no news, but doubt.
    const pid_t server = desktop.start({"foot", "--server"});
    EXPECT_TRUE(waitFor([&] {
        const auto& fresh = toplevels.windowsReadAfresh();
        return fresh.size() == 1 && !fresh[0].process && fresh[0].candidates.size() == 2;
    }));
    desktop.end(server);
    EXPECT_EQ(of("foot").at(0).process, foot);

    const pid_t other = desktop.start({"foot", "--fullscreen", "sleep", "600"});
    EXPECT_TRUE(waitFor([&] {
        const auto& fresh = toplevels.windowsReadAfresh();
        return fresh.size() == 2 && !fresh[0].isFullScreen && fresh[1].isFullScreen;
    }));
    const pid_t calculator = desktop.start({"galculator"}, {{"GDK_BACKEND", "wayland"}});
    const pid_t client = desktop.start({windowClient(), "--no-delete", "--class", "Old"});
    EXPECT_TRUE(pumpUntil(events, [&] { return count() == 4 && of("Old").size() == 1; }))
        << desktop.log();
    EXPECT_TRUE(waitFor([&] { return windows.coversAllWindows(); }));
    for (const TopLevelWindow& window : of("foot")) {
        EXPECT_EQ(window.process, std::nullopt);
        EXPECT_THAT(window.candidates, ElementsAre(std::min(foot, other), std::max(foot, other)));
    }
    EXPECT_EQ(of("galculator").at(0).process, calculator);
    EXPECT_EQ(of("Old").at(0).process, client);
    EXPECT_FALSE(windows.requestClose(of("Old").at(0).id, client));
    EXPECT_FALSE(windows.requestClose(of("galculator").at(0).id, foot));

    EXPECT_TRUE(windows.requestClose(of("galculator").at(0).id, calculator));
    windows.flush();
    EXPECT_TRUE(waitFor([&] { return desktop.exitStatus(calculator).has_value(); }));
    // Asked as the row that stands for both. With one of the two gone there is no doubt left.
    EXPECT_TRUE(windows.requestClose(of("foot").at(1).id, std::min(foot, other)));
    windows.flush();
    EXPECT_TRUE(waitFor([&] { return desktop.exitStatus(other).has_value(); }));
    EXPECT_TRUE(pumpUntil(events, [&] { return count() == 2; }));
    EXPECT_EQ(of("foot").at(0).process, foot);
    EXPECT_FALSE(desktop.exitStatus(client).has_value());

    changes = 0;
    ::kill(desktop.server(), SIGTERM);
    EXPECT_TRUE(pumpUntil(events, [&] { return changes > 0 && !toplevels.isAlive(); }));
    EXPECT_FALSE(windows.coversAllWindows());
}

/// Asks when it is to close, as editors do.
constexpr auto askingProgram = R"(
import gi
gi.require_version("Gtk", "3.0")
from gi.repository import Gtk
def ask(window, event):
    Gtk.MessageDialog(transient_for=window, text="Save?").run()
    return True
window = Gtk.Window()
window.connect("delete-event", ask)
window.show_all()
Gtk.main()
)";

TEST(ProgramThatAsks, IsLeftAloneByLaterRequests) {
    for (const bool hasSway : {true, false}) {
        LinuxDesktop machine({.sway = true});
        machine.desktop.enter();
        if (!hasSway) {
            ::unsetenv("SWAYSOCK");
        }
        const auto compositor =
            makeCompositorWindows(machine.events, [](const auto& id) { return std::vector{id}; });
        ASSERT_TRUE(compositor);
        JoinedDesktop joined(machine, *compositor);
        const auto windows = [&] { return std::vector(joined.windows.windowsReadAfresh()); };
        const auto file = (machine.desktop.home() / "asker").string();
        std::ofstream(file) << askingProgram;
        const pid_t program =
            machine.desktop.start({"/usr/bin/python3", file}, {{"GDK_BACKEND", "wayland"}});
        ASSERT_TRUE(waitFor([&] { return joined.listed().contains(program); }))
            << machine.desktop.log();
        EXPECT_TRUE(joined.workspace.runningApplication(program)->terminate());
        ASSERT_TRUE(waitFor([&] { return windows().size() == 2; })) << hasSway;
        const auto asking = windows();
        EXPECT_EQ(asking[1].transientFor, asking[0].id) << hasSway;
        EXPECT_FALSE(joined.workspace.runningApplication(program)->terminate()) << hasSway;
        EXPECT_FALSE(waitFor([&] { return windows() != asking; }, 200ms)) << "that would answer it";
        EXPECT_EQ(joined.listed().size(), 1U);
    }
}

} // namespace
} // namespace calmora
