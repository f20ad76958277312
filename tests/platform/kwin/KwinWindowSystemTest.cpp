// SPDX-License-Identifier: MIT
// The window systems of a virtual KWin and its X server, with real programs.
#include "platform/wayland/kwin/KwinWindowSystem.h"

#include "platform/linux/EventPoll.h"
#include "platform/linux/windows/CompositeWindowSystem.h"
#include "platform/x11/X11WindowSystem.h"
#include "support/QtWaiting.h"
#include "support/SeenWindows.h"
#include "support/VirtualDesktop.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>

namespace calmora {
namespace {

using testing::Contains;
using testing::UnorderedElementsAre;
using namespace std::chrono_literals;

struct KwinDesktop : testing::Test {
    VirtualDesktop desktop{{.kwin = true}};
    QDBusConnection bus = connect();
    EventPoll events;
    std::string socket = desktop.variable("XDG_RUNTIME_DIR") + std::string("/wayland-kwin");

    QDBusConnection connect() {
        desktop.enter();
        return QDBusConnection::connectToBus(desktop.variable("DBUS_SESSION_BUS_ADDRESS"), "test");
    }

    ~KwinDesktop() override { QDBusConnection::disconnectFromBus("test"); }

    pid_t calculator() { return desktop.start({"galculator"}, {{"GDK_BACKEND", "wayland"}}); }

    pid_t client(std::vector<std::string> options = {}) {
        options.insert(options.begin(), windowClient());
        return desktop.start(options);
    }

    bool hasEnded(pid_t process) { return desktop.exitStatus(process).has_value(); }

    /// Loads, starts or unloads somebody else's script.
    void script(const char* method, const QVariantList& arguments = {}) {
        QDBusMessage call = QDBusMessage::createMethodCall("org.kde.KWin", "/Scripting",
                                                           "org.kde.kwin.Scripting", method);
        call.setArguments(arguments);
        EXPECT_EQ(bus.call(call).type(), QDBusMessage::ReplyMessage);
    }
};

/// The windows as the program sees them.
struct Windows {
    KwinWindowSystem kwin;
    X11WindowSystem x11;
    CompositeWindowSystem all{{&x11, &kwin}};

    Windows(KwinDesktop& test, const QDBusConnection& bus, std::chrono::milliseconds timeout = 1s)
        : kwin(bus, test.socket, scaled(timeout)),
          x11(test.events, test.desktop.display(),
              [&test](const char* name) { return test.desktop.variable(name); }) {}
};

TEST_F(KwinDesktop, ListsEachWindowOnceAndClosesOnlyTheOneAsked) {
    const pid_t one = calculator();
    // As if the session's compositor were another one, within this one.
    const std::string address = desktop.variable("DBUS_SESSION_BUS_ADDRESS");
    const auto path = address.find('/');
    const std::string otherSocket = address.substr(path, address.find(',') - path);
    EXPECT_FALSE(KwinWindowSystem(bus, otherSocket).isAlive());

    // As the program uses it: nothing arrives before the loop runs.
    Windows windows(*this, QDBusConnection::sessionBus());
    EXPECT_FALSE(windows.all.coversAllWindows());
    ASSERT_TRUE(windows.kwin.isAlive());
    const pid_t other = calculator();
    const pid_t editor = desktop.start({"mousepad"}, {{"GDK_BACKEND", "wayland"}});
    const pid_t polite = client();
    const pid_t helpless = client({"--no-delete"});
    // Less than the pause after a request without an answer.
    EXPECT_TRUE(loopUntil(
        [&] { return ownersOf(windows.all).size() == 5 && windows.all.coversAllWindows(); }, 8s))
        << testing::PrintToString(ownersOf(windows.all)) << desktop.log();
    EXPECT_THAT(ownersOf(windows.all), UnorderedElementsAre(one, other, editor, polite, helpless));
    EXPECT_EQ(windowOf(windows.all, one).applicationId, "galculator");
    EXPECT_EQ(windowOf(windows.all, one).type, WindowType::normal);
    EXPECT_THAT(windows.all.displayProcesses(), Contains(desktop.server()));
    EXPECT_EQ(windows.all.windows(), windows.all.windowsReadAfresh());

    // KWin would kill it.
    EXPECT_FALSE(close(windows.all, helpless));
    for (const TopLevelWindow& window : std::vector(windows.kwin.windows())) {
        EXPECT_EQ(window.canBeAsked, window.process.has_value());
        if (!window.process) {
            EXPECT_FALSE(windows.kwin.requestClose(window.id, helpless));
        }
    }
    EXPECT_FALSE(windows.all.requestClose(windowOf(windows.all, one).id, other))
        << "it is another's";
    EXPECT_FALSE(windows.kwin.requestClose(99999, one));

    EXPECT_TRUE(close(windows.all, one));
    EXPECT_TRUE(close(windows.all, polite));
    EXPECT_TRUE(waitFor([&] { return hasEnded(one) && hasEnded(polite); }));
    EXPECT_TRUE(waitFor([&] { return ownersOf(windows.all).size() == 3; }));
    EXPECT_THAT(ownersOf(windows.all), UnorderedElementsAre(other, editor, helpless));
    EXPECT_FALSE(hasEnded(other) || hasEnded(editor) || hasEnded(helpless));
}

TEST_F(KwinDesktop, KnowsWhatFillsTheScreen) {
    Windows windows(*this, bus);
    for (const bool isX11 : {false, true}) {
        const pid_t process = isX11 ? client() : calculator();
        ASSERT_TRUE(loopUntil([&] { return isActive(windows.all, process); })) << desktop.log();
        // As the user does it with keys; both ways to write it are of 5.27 and 6.
        const std::pair<const char*, bool> steps[] = {
            {"(workspace.activeWindow || workspace.activeClient).fullScreen = true", true},
            {"if (workspace.createDesktop) workspace.createDesktop(1, 'two'); else "
             "workspace.desktops = 2;"
             "workspace.currentDesktop = workspace.desktops[1] || 2",
             false},
            {"workspace.currentDesktop = workspace.desktops[0] || 1", true},
            {"(workspace.activeWindow || workspace.activeClient).minimized = true", false}};
        for (const auto& [code, expected] : steps) {
            const auto file = desktop.home() / "step.js";
            std::ofstream(file) << code;
            script("loadScript", {QString::fromStdString(file), "step"});
            script("start");
            EXPECT_TRUE(waitFor([&, expected = expected] {
                static_cast<void>(windows.all.windowsReadAfresh());
                return windowOf(windows.all, process).isFullScreen == expected;
            })) << code;
            script("unloadScript", {"step"});
        }
    }
}

TEST_F(KwinDesktop, NeverClosesAWindowOfX11ItselfNorOneOfAnother) {
    const pid_t helpless = client({"--no-delete"});
    const pid_t one = calculator();
    KwinReport report;
    KwinScripts scripts(bus, [&](KwinReport arrived) { report = std::move(arrived); });
    scripts.setKwin(bus.interface()->serviceOwner("org.kde.KWin"));
    EXPECT_TRUE(waitFor(
        [&] { return scripts.run("test", {}, 10s).has_value() && report.windows.size() == 2; }));
    for (const KwinWindow& window : std::vector(report.windows)) {
        EXPECT_EQ(scripts.run("test", {.close = window.id, .process = helpless}, 10s), false);
    }
    EXPECT_FALSE(waitFor([&] { return hasEnded(helpless) || hasEnded(one); }, 300ms));
}

TEST_F(KwinDesktop, NotifiesOfWindowsAndFocusWithoutBeingAsked) {
    Windows windows(*this, bus);
    int windowChanges = 0;
    int focusChanges = 0;
    const auto onWindows = windows.kwin.onWindowsChanged([&] { ++windowChanges; });
    const auto onFocus = windows.kwin.onActiveWindowChanged([&] { ++focusChanges; });

    const pid_t one = calculator();
    EXPECT_TRUE(loopUntil([&] { return windowChanges > 0 && focusChanges > 0; }));
    EXPECT_TRUE(loopUntil([&] { return isActive(windows.all, one); }));
    focusChanges = 0;
    const pid_t old = client();
    EXPECT_TRUE(loopUntil([&] { return focusChanges > 0; }));
    EXPECT_TRUE(loopUntil([&] { return isActive(windows.all, old); }));
    windowChanges = focusChanges = 0;
    desktop.end(old);
    EXPECT_TRUE(loopUntil([&] { return windowChanges > 0 && focusChanges > 0; }));
    EXPECT_TRUE(loopUntil([&] { return isActive(windows.all, one); }));

    // Programs of the bus that are not KWin tell nothing.
    windowChanges = 0;
    QDBusMessage lie = QDBusMessage::createMethodCall(bus.baseService(), KwinScripts::path,
                                                      KwinScripts::interfaceName, "Report");
    lie.setArguments({R"({"windows":[]})"});
    EXPECT_TRUE(bus.send(lie));
    loopFor(300ms);
    EXPECT_EQ(windowChanges, 0);
    EXPECT_NE(windowOf(windows.all, one).id, 0U);
}

TEST_F(KwinDesktop, WaitsForAKwinThatHangsNoLongerThanItMay) {
    Windows windows(*this, bus, 300ms);
    const pid_t one = calculator();
    EXPECT_TRUE(loopUntil([&] { return isActive(windows.all, one); }));
    ::kill(desktop.server(), SIGSTOP);
    const auto before = std::chrono::steady_clock::now();
    EXPECT_FALSE(close(windows.all, one));
    EXPECT_FALSE(windows.kwin.coversAllWindows());
    EXPECT_EQ(windows.kwin.windowsReadAfresh().size(), 1U);
    EXPECT_LT(std::chrono::steady_clock::now() - before, scaled(900ms));
    ::kill(desktop.server(), SIGCONT);
    EXPECT_TRUE(loopUntil([&] { return windows.kwin.coversAllWindows(); }));
    EXPECT_TRUE(close(windows.all, one));
    EXPECT_TRUE(waitFor([&] { return hasEnded(one); }));
}

TEST_F(KwinDesktop, SurvivesOtherScriptsAndANewKwin) {
    const QString file = QString::fromStdString((desktop.home() / "kwin-session").string());
    script("loadScript", {file, "another"});
    Windows windows(*this, bus);
    // Our next script gets the number of the one that watches.
    script("unloadScript", {"another"});
    const pid_t one = calculator();
    EXPECT_TRUE(loopUntil([&] { return isActive(windows.all, one); })) << desktop.log();
    EXPECT_TRUE(close(windows.all, one));
    EXPECT_TRUE(waitFor([&] { return hasEnded(one); }));

    const pid_t second = calculator();
    EXPECT_TRUE(loopUntil([&] { return windowOf(windows.all, second).id != 0; }));
    int changes = 0;
    const auto listening = windows.kwin.onWindowsChanged([&] { ++changes; });
    desktop.end(desktop.server());
    EXPECT_TRUE(loopUntil([&] { return changes > 0 && !windows.kwin.coversAllWindows(); }));
    EXPECT_TRUE(windows.kwin.windows().empty());
    EXPECT_TRUE(windows.kwin.displayProcesses().empty());

    desktop.startKwin();
    changes = 0;
    const pid_t third = calculator();
    EXPECT_TRUE(loopUntil([&] { return changes > 0; }));
    EXPECT_TRUE(loopUntil([&] { return windowOf(windows.all, third).id != 0; })) << desktop.log();
    EXPECT_THAT(windows.kwin.displayProcesses(), Contains(desktop.server()));
}

} // namespace
} // namespace calmora

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
