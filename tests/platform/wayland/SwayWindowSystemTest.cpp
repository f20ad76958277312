// SPDX-License-Identifier: MIT
// The window systems of a headless sway and its X server, with real programs.
#include "platform/wayland/SwayWindowSystem.h"

#include "platform/linux/EventPoll.h"
#include "platform/linux/windows/CompositeWindowSystem.h"
#include "platform/x11/X11WindowSystem.h"
#include "support/SeenWindows.h"
#include "support/VirtualDesktop.h"
#include "support/Waiting.h"

namespace calmora {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;
using namespace std::chrono_literals;

struct SwayDesktop : testing::Test {
    VirtualDesktop desktop{{.sway = true}};
    EventPoll events;
    SwayWindowSystem sway{events, desktop.variable("SWAYSOCK")};
    X11WindowSystem x11{events, desktop.display(),
                        [this](const char* name) { return desktop.variable(name); }};
    CompositeWindowSystem windows{{&x11, &sway}};

    pid_t foot() { return shown(desktop.start({"foot", "sleep", "600"})); }

    pid_t client(std::vector<std::string> options = {}) {
        options.insert(options.begin(), windowClient());
        return shown(desktop.start(options));
    }

    /// Waits until the process has a window that sway shows.
    pid_t shown(pid_t process) {
        EXPECT_TRUE(waitFor([&] { return isActive(windows, process); })) << desktop.log();
        return process;
    }

    /// What the user does with keys.
    void command(const std::string& text) {
        SwayIpc connection(desktop.variable("SWAYSOCK"));
        const auto reply = connection.request(SwayMessageType::runCommand, text,
                                              std::chrono::steady_clock::now() + 10s);
        EXPECT_TRUE(reply && parseSwaySuccess(*reply)) << text;
    }

    void focus(pid_t process) { command("[pid=" + std::to_string(process) + "] focus"); }

    bool hasEnded(pid_t process) { return desktop.exitStatus(process).has_value(); }
};

TEST_F(SwayDesktop, ListsEachWindowOnceAndClosesOnlyTheOneAsked) {
    const pid_t one = foot();
    const pid_t other = foot();
    const pid_t polite = client();
    const pid_t helpless = client({"--no-delete"});
    EXPECT_TRUE(waitFor([&] {
        return windows.coversAllWindows() && windows.windows().size() == 4;
    })) << testing::PrintToString(ownersOf(windows));
    EXPECT_THAT(ownersOf(windows), UnorderedElementsAre(one, other, polite, helpless));
    EXPECT_EQ(windowOf(windows, one).applicationId, "foot");
    EXPECT_EQ(windowOf(windows, polite).className, "Client");
    EXPECT_THAT(windows.displayProcesses(), testing::Contains(desktop.server()));
    EXPECT_EQ(windows.windows(), windows.windowsReadAfresh());

    // sway would kill it.
    EXPECT_FALSE(close(windows, helpless));
    int ofX11 = 0;
    for (const TopLevelWindow& window : std::vector(sway.windows())) {
        ofX11 += window.x11Id ? 1 : 0;
        EXPECT_EQ(window.canBeAsked, !window.x11Id.has_value());
        EXPECT_FALSE(window.x11Id && sway.requestClose(window.id, helpless));
    }
    EXPECT_EQ(ofX11, 2);
    EXPECT_FALSE(windows.requestClose(windowOf(windows, one).id, other)) << "it is another's";
    EXPECT_FALSE(sway.requestClose(99999, one));

    EXPECT_TRUE(close(windows, one));
    EXPECT_TRUE(close(windows, polite));
    EXPECT_TRUE(waitFor([&] { return hasEnded(one) && hasEnded(polite); }));
    EXPECT_TRUE(waitFor([&] { return windows.windows().size() == 2; }));
    EXPECT_THAT(ownersOf(windows), UnorderedElementsAre(other, helpless));
    EXPECT_FALSE(hasEnded(other));
    EXPECT_FALSE(hasEnded(helpless));
}

TEST_F(SwayDesktop, NotifiesOfWindowsAndFocusWithoutBeingAsked) {
    const pid_t one = foot();
    const pid_t old = client();
    int windowChanges = 0;
    int focusChanges = 0;
    auto onWindows = windows.onWindowsChanged([&] { ++windowChanges; });
    auto onFocus = windows.onActiveWindowChanged([&] { ++focusChanges; });
    focus(one);
    EXPECT_TRUE(pumpUntil(events, [&] { return focusChanges > 0 && isActive(windows, one); }));
    focus(old);
    EXPECT_TRUE(pumpUntil(events, [&] { return isActive(windows, old); }));
    command("workspace 2");
    EXPECT_TRUE(pumpUntil(events, [&] { return !windows.activeWindow(); }));

    windowChanges = 0;
    const pid_t late = desktop.start({"foot", "sleep", "600"});
    EXPECT_TRUE(pumpUntil(events, [&] { return windowChanges > 0; }));
    shown(late);
    windowChanges = 0;
    desktop.end(late);
    EXPECT_TRUE(pumpUntil(events, [&] { return windowChanges > 0; }));

    // Nothing happens, so nothing wakes up; nor does anything where nobody listens.
    pumpUntil(events, [&] { return windows.windows().size() == 2; });
    EXPECT_TRUE(pumpUntilQuiet(events, 400ms));
    onWindows.reset();
    onFocus.reset();
    EXPECT_TRUE(pumpUntilQuiet(events));
    command("workspace 1");
    focus(one);
    EXPECT_EQ(pumpFor(events, 300ms), 0);

    windowChanges = 0;
    const auto listening = sway.onWindowsChanged([&] { ++windowChanges; });
    ::kill(desktop.server(), SIGTERM);
    EXPECT_TRUE(pumpUntil(events, [&] { return windowChanges > 0 && !sway.isAlive(); }));
    EXPECT_FALSE(sway.coversAllWindows());
}

} // namespace
} // namespace calmora
