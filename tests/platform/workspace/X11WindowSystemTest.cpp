// SPDX-License-Identifier: MIT
#include "platform/x11/X11WindowSystem.h"
#include "support/SeenWindows.h"
#include "support/VirtualDesktop.h"
#include "support/Waiting.h"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <thread>
#include <unistd.h>

namespace calmora {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class X11WindowSystemTest : public testing::Test {
  protected:
    void open(const VirtualDesktopOptions& options = {}) {
        desktop.emplace(options);
        system.emplace(events, desktop->display());
        ASSERT_TRUE(system->isAlive());
    }

    pid_t client(std::vector<std::string> options = {}) {
        options.insert(options.begin(), windowClient());
        return desktop->start(options);
    }

    std::vector<TopLevelWindow> windowsOf(pid_t process) {
        std::vector<TopLevelWindow> result;
        std::ranges::copy_if(system->windows(), std::back_inserter(result),
                             [&](const auto& window) { return window.process == process; });
        return result;
    }

    /// The only window of a client, once it is there.
    TopLevelWindow windowOf(pid_t process) {
        EXPECT_TRUE(waitFor([&] { return !windowsOf(process).empty(); })) << desktop->log();
        const auto found = windowsOf(process);
        return found.empty() ? TopLevelWindow{} : found.front();
    }

    EventPoll events;
    std::optional<VirtualDesktop> desktop;
    std::optional<X11WindowSystem> system;
};

TEST_F(X11WindowSystemTest, ReadsWhatWindowsSayOfThemselves) {
    open();
    const TopLevelWindow plain =
        windowOf(client({"--instance", "first", "--class", "Second", "--pid", "0"}));
    EXPECT_EQ(plain, (TopLevelWindow{.id = plain.id,
                                     .process = plain.process,
                                     .certainty = ProcessCertainty::certain,
                                     .instance = "first",
                                     .className = "Second",
                                     .canBeAsked = true}));

    const TopLevelWindow odd =
        windowOf(client({"--no-delete", "--skip-taskbar", "--type", "DIALOG", "--icon", "200"}));
    EXPECT_FALSE(odd.canBeAsked);
    EXPECT_TRUE(odd.skipsTaskbar);
    EXPECT_EQ(odd.type, WindowType::dialog);
    EXPECT_EQ(system->icon(odd.id)->argb.front(), 0xff336699U);

    using Pixels = std::vector<std::uint32_t>;
    const auto bitmap = windowOf(client({"--icon-bitmap", "plain"}));
    EXPECT_EQ(system->icon(bitmap.id)->argb, (Pixels{0, 0xff000000U}));
    const auto colored = windowOf(client({"--icon-bitmap", "colored"}));
    EXPECT_EQ(system->icon(colored.id)->argb, (Pixels{0, 0xffeeddccU}));

    const pid_t withDialog = client({"--transient"});
    EXPECT_TRUE(waitFor([&] { return windowsOf(withDialog).size() == 2; }));
    const auto pair = windowsOf(withDialog);
    EXPECT_EQ(pair[1].transientFor, pair[0].id);

    // A program that forwards a window from elsewhere is not its application.
    const std::string ours = std::to_string(::getpid());
    std::string host(256, '\0');
    ::gethostname(host.data(), host.size());
    client({"--class", "Elsewhere", "--machine", "elsewhere.example.org", "--pid", "1"});
    client({"--class", "Forwarded", "--machine", host.c_str(), "--pid", ours});
    EXPECT_TRUE(waitFor(
        [&] { return std::ranges::count_if(system->windows(), &TopLevelWindow::isRemote) == 2; }));
    for (const TopLevelWindow& window : system->windows()) {
        EXPECT_NE(window.isRemote, window.process.has_value()) << window.className;
    }
}

TEST_F(X11WindowSystemTest, TellsChangesAndCostsNothingOtherwise) {
    open();
    int changes = 0;
    int activations = 0;
    Subscription listening = system->onWindowsChanged([&] { ++changes; });
    Subscription active = system->onActiveWindowChanged([&] { ++activations; });
    const pid_t process = client();
    const WindowId id = windowOf(process).id;
    EXPECT_TRUE(pumpUntil(events, [&] { return activations > 0 && system->activeWindow() == id; }));

    const std::string window = std::to_string(id);
    changes = 0;
    EXPECT_EQ(desktop->run(
                  {"xprop", "-id", window, "-f", "WM_CLASS", "8s", "-set", "WM_CLASS", "renamed"}),
              0);
    EXPECT_TRUE(pumpUntil(events, [&] { return changes > 0; }));
    EXPECT_EQ(windowsOf(process).front().instance, "renamed");

    EXPECT_TRUE(pumpUntilQuiet(events));
    changes = 0;
    EXPECT_EQ(desktop->run({"xdotool", "set_window", "--name", "another title", window}), 0);
    pumpUntil(events, [&] { return changes > 0; }, 100ms);
    EXPECT_EQ(changes, 0) << "a title identifies nobody";

    desktop->end(process);
    EXPECT_TRUE(pumpUntil(events, [&] { return changes > 0; }));
    EXPECT_TRUE(windowsOf(process).empty());

    // Once nobody listens nothing wakes us up, and the list is right all the same.
    listening.reset();
    active.reset();
    EXPECT_TRUE(pumpUntilQuiet(events));
    const pid_t unseen = client();
    EXPECT_EQ(pumpFor(events, 300ms), 0);
    EXPECT_EQ(windowsOf(unseen).size(), 1U);
}

TEST_F(X11WindowSystemTest, KnowsWhatFillsTheScreenAndWhenTheUserWasThere) {
    open();
    const pid_t process = desktop->start({"xterm", "-fullscreen", "-e", "sleep", "600"});
    const auto isFull = [&](bool expected) {
        return waitFor([&] {
            static_cast<void>(system->windowsReadAfresh());
            return windowOf(process).isFullScreen == expected;
        });
    };
    EXPECT_TRUE(isFull(true));
    const std::string window = std::to_string(windowOf(process).id);
    for (const auto& [command, expected] : std::vector<std::pair<std::vector<std::string>, bool>>{
             {{"set_desktop", "1"}, false},
             {{"set_desktop", "0"}, true},
             {{"windowminimize", window}, false}}) {
        std::vector<std::string> line = command;
        line.insert(line.begin(), "xdotool");
        EXPECT_EQ(desktop->run(line), 0);
        EXPECT_TRUE(isFull(expected)) << command.front();
    }

    EXPECT_TRUE(waitFor([&] { return system->sinceInput() > 300ms; }));
    EXPECT_EQ(desktop->run({"xdotool", "mousemove_relative", "7", "7"}), 0);
    EXPECT_LT(system->sinceInput(), 300ms);
    X11WindowSystem inWayland(events, desktop->display(), [](const char* name) {
        return std::string_view(name) == "XDG_SESSION_TYPE" ? "wayland" : nullptr;
    });
    EXPECT_EQ(inWayland.sinceInput(), std::nullopt) << "it sees the input of few programs";
}

TEST_F(X11WindowSystemTest, TellsAWindowFromALaterOneWithTheSameId) {
    for (const char* manager : {"openbox", "xfwm4", "9wm", ""}) {
        SCOPED_TRACE(manager);
        system.reset();
        desktop.reset();
        open({.windowManager = manager});
        EventPoll unused;
        X11WindowSystem always(unused, desktop->display());
        int changes = 0;
        const Subscription listening = system->onWindowsChanged([&] { ++changes; });
        const pid_t first = client();
        const WindowId id = windowOf(first).id;
        desktop->end(first);
        EXPECT_TRUE(waitFor([&] { return always.windows().empty(); }));
        // All that happens in between arrives in one batch. Some other connection that has just
        // been closed may have left an earlier place for the next client.
        pid_t second = 0;
        WindowId given = 0;
        for (int attempt = 0; attempt < 5 && given != id; ++attempt) {
            second = client();
            EXPECT_TRUE(
                waitFor([&] { return (given = calmora::windowOf(always, second).id) != 0; }));
        }
        EXPECT_EQ(windowOf(second).id, id);
        EXPECT_TRUE(windowsOf(first).empty());
        EXPECT_FALSE(system->requestClose(id, first)) << "it is another's";
        EXPECT_TRUE(pumpUntilQuiet(events));
        changes = 0;
        EXPECT_EQ(desktop->run({"xprop", "-id", std::to_string(id), "-f", "WM_CLASS", "8s", "-set",
                                "WM_CLASS", "renamed"}),
                  0);
        EXPECT_TRUE(pumpUntil(events, [&] { return changes > 0; })) << "its changes are told too";
    }
}

TEST_F(X11WindowSystemTest, ManagesWithoutAWindowManager) {
    open({.windowManager = ""});
    int changes = 0;
    int activations = 0;
    const Subscription listening = system->onWindowsChanged([&] { ++changes; });
    const Subscription active = system->onActiveWindowChanged([&] { ++activations; });
    const pid_t process = client({"--windows", "2"});
    EXPECT_TRUE(pumpUntil(events, [&] { return changes > 0 && windowsOf(process).size() == 2; }));
    const WindowId second = windowsOf(process)[1].id;
    EXPECT_FALSE(system->icon(second));
    EXPECT_EQ(desktop->run({"xdotool", "windowfocus", std::to_string(second)}), 0);
    EXPECT_TRUE(
        pumpUntil(events, [&] { return activations > 0 && system->activeWindow() == second; }));

    // A manager that comes takes the windows over; one that dies leaves them.
    desktop->startWindowManager("openbox");
    EXPECT_TRUE(pumpUntil(events, [&] { return windowsOf(process).size() == 2; }));
    EXPECT_THAT(system->displayProcesses(), Contains(desktop->windowManager()));
    desktop->end(desktop->windowManager());
    EXPECT_TRUE(pumpUntil(events, [&] {
        return windowsOf(process).size() == 2 &&
               !testing::Value(system->displayProcesses(), Contains(desktop->windowManager()));
    }));
    changes = 0;
    desktop->end(process);
    EXPECT_TRUE(pumpUntil(events, [&] { return changes > 0 && windowsOf(process).empty(); }));
}

TEST_F(X11WindowSystemTest, KnowsTheDisplaysOwnProcesses) {
    open({.tray = true});
    const pid_t application = client({"--tray"});
    const pid_t panel = client({"--type", "DOCK"});
    const pid_t background = client({"--type", "DESKTOP"});
    windowOf(application);
    windowOf(panel);
    windowOf(background);
    const auto processes = system->displayProcesses();
    for (const pid_t process :
         {desktop->server(), desktop->windowManager(), desktop->tray(), panel, background}) {
        EXPECT_THAT(processes, Contains(process));
    }
    EXPECT_THAT(processes, Not(Contains(application)));
    EXPECT_TRUE(waitFor([&] { return !system->trayIconProcesses().empty(); }));
    EXPECT_THAT(system->trayIconProcesses(), ElementsAre(application));
}

TEST_F(X11WindowSystemTest, ToleratesWindowsThatVanishAndNamesThatAreOdd) {
    open({.windowManager = ""});
    const std::string longName(10'000, 'x');
    const TopLevelWindow odd = windowOf(
        client({"--class", longName, "--instance", "a\n\x1b[31m\xff", "--title", longName}));
    EXPECT_EQ(odd.instance, "a\n\x1b[31m\xff");
    EXPECT_LE(odd.className.size(), 1024U);

    // Another thread keeps opening and destroying windows while they are listed.
    std::atomic<bool> done = false;
    std::thread flicker([&] {
        xcb_connection_t* other = xcb_connect(desktop->display().c_str(), nullptr);
        const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(other)).data;
        while (!done) {
            const xcb_window_t window = xcb_generate_id(other);
            xcb_create_window(other, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, 9, 9, 0,
                              XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
            xcb_map_window(other, window);
            // Waits for the server, which otherwise has events for us faster than we read them.
            std::free(xcb_get_input_focus_reply(other, xcb_get_input_focus(other), nullptr));
            xcb_destroy_window(other, window);
        }
        xcb_disconnect(other);
    });
    const Subscription listening = system->onWindowsChanged([] {});
    std::size_t listed = 0;
    for (int i = 0; i < 300; ++i) {
        events.dispatch();
        const auto& windows = system->windows();
        listed +=
            static_cast<std::size_t>(std::ranges::count(windows, odd.id, &TopLevelWindow::id));
    }
    done = true;
    flicker.join();
    EXPECT_EQ(listed, 300U) << "a window that stays is in every list";
}

TEST_F(X11WindowSystemTest, OutlivesTheServer) {
    open();
    const WindowId window = windowOf(client()).id;
    const Subscription listening = system->onWindowsChanged([] {});
    desktop->end(desktop->server());
    EXPECT_TRUE(pumpUntil(events, [&] { return !system->isAlive(); }));
    EXPECT_TRUE(system->windows().empty() && system->displayProcesses().empty());
    EXPECT_FALSE(system->activeWindow() || system->requestClose(window, 1) || system->icon(window));
    EXPECT_TRUE(system->trayIconProcesses().empty());
    system->flush();
    events.dispatch();

    X11WindowSystem nowhere(events, ":32767");
    EXPECT_FALSE(nowhere.isAlive());
    EXPECT_TRUE(nowhere.windows().empty());
    const Subscription unused = nowhere.onWindowsChanged([] {});
}

} // namespace
} // namespace calmora
