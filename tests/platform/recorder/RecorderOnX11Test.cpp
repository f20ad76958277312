// The recorder, the hot keys and Qt's own keyboard on one X server with a window manager.
#include "KeyboardShortcuts/Recorder.h"
#include "app/HotKeyManager.h"
#include "fakes/FakeKeys.h"
#include "fakes/FakeLocalizedStrings.h"
#include "fakes/FakeText.h"
#include "fakes/FakeUserDefaults.h"
#include "platform/NotificationCenter.h"
#include "platform/linux/EventPoll.h"
#include "platform/qt/AlertSession.h"
#include "platform/qt/DescriptorWatch.h"
#include "platform/qt/input/RunLoopLocalEventMonitor.h"
#include "platform/x11/hotkeys/X11HotKeys.h"
#include "platform/x11/hotkeys/X11Keyboard.h"
#include "platform/x11/hotkeys/X11KeyboardLayout.h"
#include "support/KeyPresser.h"
#include "support/QtWaiting.h"
#include "support/VirtualDesktop.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <memory>
#include <string>

namespace calmora {
namespace {

constexpr std::uint8_t controlKey = 37;
constexpr std::uint8_t altKey = 64;
constexpr std::uint8_t kKey = 45;
constexpr std::uint8_t jKey = 44;
constexpr std::uint8_t tabKey = 23;
constexpr std::uint8_t escapeKey = 9;

constexpr const char* controlOptionK = R"({"carbonKeyCode":40,"carbonModifiers":6144})";

VirtualDesktop* desktop = nullptr;

class RecorderOnX11 : public testing::Test {
  protected:
    void SetUp() override {
        auto* layoutBox = new QVBoxLayout(&window);
        for (const char* name : {"activateMenu", "quitAll", "activateMenu"}) {
            layoutBox->addWidget(
                new Recorder(environment, name, shortcuts.name(name), nullptr, &window));
        }
        window.resize(300, 200);
        window.show();
        ASSERT_TRUE(loopUntil([&] { return window.isActiveWindow(); }));
        manager.onActivateMenu = [this] { heard += "a"; };
        manager.onQuitAll = [this] { heard += "q"; };
        manager.registerShortcuts();
        settle();
    }

    RecorderCocoa& recorder(int index) {
        return static_cast<RecorderCocoa&>(*window.findChildren<QLineEdit*>().at(index));
    }

    /// Clicks a recorder and waits until it records.
    void record(int index) {
        const QPoint place = recorder(index).mapToGlobal(recorder(index).rect().center());
        keys.move(place.x(), place.y());
        keys.button(1, true);
        keys.button(1, false);
        settle();
        ASSERT_TRUE(loopUntil([&] { return recorder(index).isRecording(); }));
    }

    void tap(std::initializer_list<std::uint8_t> codes) {
        keys.tap(codes);
        settle();
    }

    /// Gives what was pressed time to arrive on both connections.
    static void settle() { loopFor(std::chrono::milliseconds(150)); }

    std::string takeHeard() { return std::exchange(heard, {}); }

    /// Waits for the shortcuts to be heard in this order, and that no more follow.
    void expectHeard(const std::string& expected) {
        loopUntil([&] { return heard.size() >= expected.size(); });
        settle();
        EXPECT_EQ(takeHeard(), expected);
    }

    std::string stored(const std::string& name) {
        return defaults.string("KeyboardShortcuts_" + name).value_or("none");
    }

    /// Waits for a shortcut to be stored.
    void expectStored(const std::string& name, const std::string& expected) {
        loopUntil([&] { return stored(name) == expected; });
        EXPECT_EQ(stored(name), expected);
    }

    AlertSession alerts;
    EventPoll events;
    KeyPresser keys{desktop->display()};
    X11Keyboard keyboard{events, desktop->display()};
    X11HotKeys hotKeys{keyboard};
    X11KeyboardLayout layout{keyboard};
    DescriptorWatch watch{events.descriptor(), alerts, [this] { events.dispatch(); }};
    FakeUserDefaults defaults;
    NotificationCenter notifications;
    FakeLocalizedStrings strings;
    FakeText text;
    FakeSystemShortcuts system;
    KeyboardShortcuts shortcuts{{defaults, notifications, hotKeys, layout, strings, text}};
    RecorderEnvironment environment{shortcuts, notifications,           system, layout,
                                    strings,   {{"Quit", {{"q"}}, {}}}, {},     {}};
    RunLoopLocalEventMonitor menus{
        notifications, [this](std::uint32_t key, ModifierFlags modifiers) {
            const auto code = layout.keyCode(key);
            return code && shortcuts.isRegistered(Shortcut::of(Key{*code}, modifiers));
        }};
    HotKeyManager manager{shortcuts};
    std::string heard;
    QWidget window;
};

TEST_F(RecorderOnX11, RecordingEndsWithTheFocus) {
    record(0);
    const pid_t terminal = desktop->start({"xterm", "-geometry", "20x5+700+500"});
    EXPECT_TRUE(loopUntil([&] { return !window.isActiveWindow(); }));
    EXPECT_FALSE(recorder(0).isRecording()) << "another window has the keyboard";
    EXPECT_FALSE(shortcuts.handlersPaused());
    desktop->end(terminal);
    EXPECT_TRUE(loopUntil([&] { return window.isActiveWindow(); }));
    settle();
    EXPECT_FALSE(recorder(0).isRecording()) << "the keyboard coming back is no wish to record";
}

TEST_F(RecorderOnX11, TakesEvenWhatTheWindowManagerOrAnotherShortcutHas) {
    shortcuts.setShortcut(Shortcut{40, 0x1800}, shortcuts.name("quitAll"));
    record(0);
    tap({controlKey, altKey, kKey});
    expectStored("activateMenu", controlOptionK);
    EXPECT_EQ(recorder(2).text(), "⌃⌥K") << "another recorder of the name";
    EXPECT_EQ(takeHeard(), "") << "the press that was recorded";
    tap({controlKey, altKey, kKey});
    expectHeard("aq");
    EXPECT_TRUE(window.isActiveWindow()) << "a hot key takes the keyboard from nobody";
    record(0);
    testing::internal::CaptureStdout();
    tap({altKey, tabKey});
    expectStored("activateMenu", R"({"carbonKeyCode":48,"carbonModifiers":2048})");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error registering hotkey ⌥⇥: 10\n");
}

TEST_F(RecorderOnX11, AlertsGiveTheKeyboardBack) {
    shortcuts.setShortcut(Shortcut{38, 0x1800}, shortcuts.name("quitAll"));
    bool isAnswered = false;
    environment.beginAlert = [&] {
        QTimer::singleShot(300, &window, [&] {
            EXPECT_FALSE(recorder(0).isRecording());
            tap({controlKey, altKey, jKey});
            tap({escapeKey});
        });
        return Subscription([&, session = std::make_shared<Subscription>(alerts.begin())] {
            keyboard.discardKeyPresses();
            session->reset();
            isAnswered = true;
        });
    };
    record(0);
    keys.tap({133, 24}); // Super and Q
    ASSERT_TRUE(loopUntil([&] { return isAnswered; }));
    EXPECT_TRUE(loopUntil([&] { return recorder(0).isRecording(); })) << "and goes on";
    settle();
    EXPECT_EQ(takeHeard(), "") << "a shortcut pressed meanwhile";
    EXPECT_EQ(stored("activateMenu"), "none");
    tap({controlKey, altKey, kKey});
    expectStored("activateMenu", controlOptionK);
}

TEST_F(RecorderOnX11, ShortcutsWorkWhileAMenuIsOpen) {
    shortcuts.setShortcut(Shortcut{40, 0x1800}, shortcuts.name("quitAll"));
    QMenu menu;
    menu.addAction("One");
    menu.popup(window.mapToGlobal(QPoint(20, 20)));
    ASSERT_TRUE(
        QTest::qWaitForWindowExposed(&menu, static_cast<int>(scaled(defaultTimeout).count())));
    settle();
    tap({controlKey, altKey, kKey});
    expectHeard("q");
    EXPECT_TRUE(menu.isVisible()) << "Alt does not close it";
}

} // namespace
} // namespace calmora

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) {
        return RUN_ALL_TESTS();
    }
    calmora::VirtualDesktopOptions options;
    options.windowManager = argc > 1 ? argv[1] : "openbox";
    calmora::VirtualDesktop someDesktop(options);
    calmora::desktop = &someDesktop;
    someDesktop.enter();
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
