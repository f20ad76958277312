// SPDX-License-Identifier: MIT
#include "PrivateBus.h"
#include "fakes/FakeKeys.h"
#include "fakes/FakeLocalizedStrings.h"
#include "platform/gnome/backend/ShellHotKeys.h"
#include "platform/gnome/backend/ShellLink.h"
#include "platform/gnome/backend/ShellStatusItem.h"
#include "platform/gnome/backend/ShellWindowSystem.h"
#include "platform/linux/keyboard/KeyCodes.h"

#include <unistd.h>

namespace calmora {
namespace {

using namespace std::chrono_literals;

ShellWindowValues values(std::initializer_list<std::pair<qulonglong, bool>> windows) {
    ShellWindowValues result;
    for (const auto& [id, isX11] : windows) {
        result.append({{"id", id},
                       {"pid", static_cast<int>(getpid())},
                       {"x11", isX11},
                       {"xid", 5U},
                       {"type", 0U},
                       {"close", true}});
    }
    return result;
}

/// A shell with our extension: a Wayland window and an X11 window, the first with the focus.
class GnomeShellTest : public testing::Test {
  protected:
    GnomeShellTest() { registerShellTypes(); }

    QVariantList answer(const QDBusMessage& call) {
        if (call.member() == "Attach") {
            return {QVariantMap{{"windows", QVariant::fromValue(told)},
                                {"focus", qulonglong{1} << 60},
                                {"icon-rect", QVariant::fromValue(ShellRect{10, 0, 20, 30})}}};
        }
        if (call.member() == "GrabKeys") {
            QThread::msleep(pause.exchange(0));
            QList<uint> ids;
            for (const QString& key : call.arguments().value(0).toStringList()) {
                ids.append(key == "<Super>0x26" ? 0 : static_cast<uint>(qHash(key)) | 1);
            }
            return {QVariant::fromValue(ids)};
        }
        if (call.member() == "Windows") {
            QThread::msleep(pause);
            return {QVariant::fromValue(told), qulonglong{1} << 60};
        }
        return call.member() == "Close" ? call.arguments() : QVariantList();
    }

    void appear() {
        ASSERT_TRUE(shell.registerService("org.gnome.Shell"));
        ASSERT_TRUE(shell.registerService(ShellLink::service));
    }

    void leave() { ASSERT_TRUE(shell.unregisterService(ShellLink::service)); }

    /// Sends the program a signal of the extension.
    void send(const char* name, const QVariantList& arguments, const QDBusConnection& from) {
        QDBusMessage signal = QDBusMessage::createTargetedSignal(
            ours.baseService(), ShellLink::path, ShellLink::interfaceName, name);
        signal.setArguments(arguments);
        from.send(signal);
        callAndWait(from, ours.baseService(), "/", "org.freedesktop.DBus.Peer", "Ping");
        QCoreApplication::processEvents();
    }

    bool becomes(const ShellLink& link, ShellLink::State state) {
        return loopUntil([&] { return link.state() == state; });
    }

    PrivateBus bus;
    QDBusConnection ours = bus.connect();
    QDBusConnection shell = bus.connect();
    ShellWindowValues told = values({{qulonglong{1} << 60, false}, {2, true}});
    std::atomic<unsigned long> pause = 0;
    ScriptedObject object{shell, ShellLink::path, [this](auto&& call) { return answer(call); }};
    AnsweringThread thread{&object};
};

TEST_F(GnomeShellTest, IsListenedToAloneAndAskedForWaylandWindowsAlone) {
    QDBusConnection impostor = bus.connect();
    ASSERT_TRUE(impostor.registerService("org.gnome.Shell"));
    ASSERT_TRUE(shell.registerService(ShellLink::service));
    ShellLink link(ours, {}, scaled(200ms));
    ASSERT_TRUE(becomes(link, ShellLink::State::absent)) << "another program has the shell's name";
    ASSERT_TRUE(impostor.unregisterService("org.gnome.Shell"));
    leave();
    appear();
    ShellLink elsewhere(ours, bus.socket());
    ASSERT_TRUE(becomes(elsewhere, ShellLink::State::absent)) << "another compositor listens";
    ASSERT_TRUE(becomes(link, ShellLink::State::attached));

    ShellWindowSystem windows(link);
    ASSERT_EQ(windows.windows().size(), 2U);
    const TopLevelWindow own = windows.windows()[0];
    EXPECT_EQ(own.process, getpid());
    EXPECT_EQ(own.certainty, ProcessCertainty::certain);
    EXPECT_EQ(windows.activeWindow(), own.id);
    EXPECT_EQ(windows.windows()[1].process, std::nullopt);
    EXPECT_EQ(windows.windows()[1].x11Id, 5U);
    EXPECT_TRUE(windows.coversAllWindows());
    EXPECT_THAT(windows.displayProcesses(), testing::Contains(getpid()));

    EXPECT_FALSE(windows.requestClose(own.id, getppid()));
    EXPECT_FALSE(windows.requestClose(windows.windows()[1].id, getpid()));
    EXPECT_EQ(object.count("Close"), 0);
    EXPECT_TRUE(windows.requestClose(own.id, getpid()));
    EXPECT_EQ(object.count("Close"), 1);

    const QVariantList none{QVariant::fromValue(ShellWindowValues())};
    send("WindowsChanged", none, impostor);
    EXPECT_EQ(windows.windows().size(), 2U);
    send("WindowsChanged", none, shell);
    EXPECT_EQ(windows.windows().size(), 0U);
    EXPECT_EQ(windows.windowsReadAfresh().size(), 2U);

    pause = static_cast<unsigned long>(scaled(400ms).count());
    static_cast<void>(windows.windowsReadAfresh());
    EXPECT_FALSE(windows.coversAllWindows()) << "it did not answer";
    leave();
    ASSERT_TRUE(becomes(link, ShellLink::State::absent));
    EXPECT_TRUE(windows.windows().empty());
    EXPECT_EQ(windows.activeWindow(), std::nullopt);
}

TEST_F(GnomeShellTest, HasKeysWhileItIsThere) {
    FakeHotKeys others;
    ShellLink link(ours, {}, scaled(200ms));
    ShellHotKeys keys(link, others, true, [] { return true; });
    std::vector<std::uint32_t> fired;
    const auto handler = keys.installEventHandler([&](const HotKeyEvent& event) {
        if (event.kind == HotKeyEventKind::hotKeyPressed) {
            fired.push_back(std::get<HotKeyIdentifier>(event.identifier).id);
        }
        return HotKeyStatus::success;
    });
    keys.addEventTypes(HotKeyEventTypes::hotKeys);
    others.takeCalls();
    ASSERT_TRUE(becomes(link, ShellLink::State::absent));
    const auto early = keys.registerHotKey(40, carbon::control | carbon::option, {7, 1});
    EXPECT_EQ(others.takeCalls(), std::vector<std::string>{"register 40/6144 as 40"});

    pause = static_cast<unsigned long>(scaled(400ms).count());
    appear();
    ASSERT_TRUE(becomes(link, ShellLink::State::attached));
    EXPECT_EQ(others.takeCalls(), std::vector<std::string>{"release 40"}) << "held once";
    EXPECT_TRUE(loopUntil([&] { return object.count("GrabKeys") == 2; })) << "busy at first";
    EXPECT_EQ(keys.registerHotKey(0, carbon::command, {7, 2}).status, HotKeyStatus::taken);
    EXPECT_EQ(keys.registerHotKey(63, 0, {7, 3}).status, HotKeyStatus::badValue);
    const uint id = static_cast<uint>(qHash(QString("<Control><Alt>0x2d"))) | 1;
    send("KeyPressed", {id, 5U}, shell);
    send("KeyPressed", {id + 1, 6U}, shell);
    send("KeyPressed", {id, 7U}, shell);
    EXPECT_EQ(fired, (std::vector<std::uint32_t>{1, 1}));
    leave();
    ASSERT_TRUE(becomes(link, ShellLink::State::absent));
    EXPECT_EQ(others.takeCalls(), std::vector<std::string>{"register 40/6144 as 40"});
}

TEST_F(GnomeShellTest, ShowsTheIconInPlaceOfOthers) {
    QDBusConnection panel = bus.connect();
    ScriptedObject watcher(panel, "/StatusNotifierWatcher");
    ASSERT_TRUE(panel.registerService("org.kde.StatusNotifierWatcher"));
    FakeLocalizedStrings strings;
    ShellLink link(ours);
    std::vector<StatusEvent> events;
    int quits = 0;
    ShellStatusItem item(link, std::make_unique<QtStatusItem>(ours, "org.example.Tool", strings),
                         [](bool) {});
    item.setAction([&](StatusEvent event) { events.push_back(event); });
    item.setMenu([&] {
        return std::vector<StatusMenuItem>{{"Check", "", false, [&] { quits += 100; }},
                                           {"Quit", "q", true, [&] { ++quits; }}};
    });
    const auto status = [&] {
        return readProperty<QString>(callAndWait(panel, ours.baseService(), NotifierItem::path,
                                                 "org.freedesktop.DBus.Properties", "Get",
                                                 {NotifierItem::interfaceName, "Status"}));
    };
    EXPECT_TRUE(loopUntil([&] { return watcher.count("RegisterStatusNotifierItem") == 1; }));
    EXPECT_EQ(status(), "Active");

    appear();
    ASSERT_TRUE(becomes(link, ShellLink::State::attached));
    EXPECT_EQ(status(), "Passive");
    EXPECT_EQ(item.frame(), (Rect{10, 0, 20, 30}));
    send("IconActivated", {2U, QVariant::fromValue(ShellRect{})}, shell);
    send("IconActivated", {1U, QVariant::fromValue(ShellRect{40, 0, 20, 30})}, shell);
    EXPECT_EQ(events, std::vector{StatusEvent::leftMouseUp});
    EXPECT_EQ(item.frame(), (Rect{40, 0, 20, 30}));
    ASSERT_TRUE(loopUntil([&] { return object.count("SetMenu") == 1; }));
    const auto menu = std::ranges::find(object.calls, "SetMenu", &QDBusMessage::member);
    const auto entries = readArgument<QList<ShellMenuItem>>(*menu).value();
    EXPECT_EQ(entries.size(), 2);
    for (const ShellMenuItem& entry : entries) {
        send("MenuActivated", {entry.id}, shell);
    }
    send("MenuActivated", {0U}, shell);
    EXPECT_EQ(quits, 1) << "neither one that is disabled nor a separator";
    leave();
    ASSERT_TRUE(becomes(link, ShellLink::State::absent));
    EXPECT_EQ(status(), "Active");
}

} // namespace
} // namespace calmora
