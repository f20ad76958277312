#include "unit/KeyboardShortcuts/ShortcutsFixture.h"

namespace calmora {
namespace {

class HotKeyTableTest : public ShortcutsFixture {
  protected:
    using Lines = std::vector<std::string>;

    void openMenu() { notifications.post({"NSMenuDidBeginTrackingNotification", {}}); }

    void closeMenu() { notifications.post({"NSMenuDidEndTrackingNotification", {}}); }

    /// Stores a shortcut for a name; its actions append the name, and "'" for the release.
    ShortcutName bind(const std::string& raw, const Shortcut& shortcut) {
        auto name = shortcuts.name(raw);
        shortcuts.onKeyDown(name, hear(raw));
        shortcuts.onKeyUp(name, hear(raw + "'"));
        shortcuts.setShortcut(shortcut, name);
        return name;
    }

    std::string takeHeard() { return std::exchange(heard, {}); }
};

TEST_F(HotKeyTableTest, PrintsRefusals) {
    hotKeys.refusals[13] = HotKeyStatus::taken;
    bind("k", commandK);
    bind("s", optionS);
    testing::internal::CaptureStdout();
    bind("w", {13, CarbonModifiers::command});
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error registering hotkey ⌘W: 10\n");
    bind("m", {46, CarbonModifiers::control});
    EXPECT_EQ(shortcuts.getShortcut(bind("n", {1LL << 32, 256})), (Shortcut{1LL << 32, 256}));
    bind("n", {40, -256});
    EXPECT_EQ(hotKeys.takeCalls(),
              (Lines{"register 40/256 as 1", "install", "-raw", "+hot", "register 1/2048 as 2",
                     "register 13/256 as 3", "register 46/4096 as 4"}))
        << "nothing for values that are no unsigned 32 bits";
    EXPECT_EQ(hotKeys.fire(3), -9874);
    EXPECT_EQ(hotKeys.fire(4), 0);
    EXPECT_EQ(takeHeard(), "m");
}

TEST_F(HotKeyTableTest, ReturnsTheStatusOfEvents) {
    bind("k", commandK);
    EXPECT_EQ(hotKeys.fire(1), 0);
    EXPECT_EQ(hotKeys.fire(1, HotKeyEventKind::hotKeyReleased), 0);
    EXPECT_EQ(hotKeys.fire(1, HotKeyEventKind::hotKeyPressed, 0x434C4D49), -9874);
    EXPECT_EQ(hotKeys.fire(1, HotKeyEventKind{2}), -9874);
    HotKeyEvent unreadable{.identifier = -5, .keyCode = 40U, .keyModifiers = -6};
    EXPECT_EQ(hotKeys.handler(unreadable), -5);
    unreadable.kind = HotKeyEventKind::rawKeyDown;
    EXPECT_EQ(hotKeys.handler(unreadable), -6);
    EXPECT_EQ(takeHeard(), "kk'");
}

TEST_F(HotKeyTableTest, AnOpenMenuSwitchesToRawKeys) {
    bind("k", commandK);
    bind("s", optionS);
    hotKeys.takeCalls();
    openMenu();
    openMenu();
    EXPECT_EQ(hotKeys.takeCalls(), (Lines{"release 1", "release 2", "-hot", "+raw"}));
    // Other bits are ignored.
    EXPECT_EQ(hotKeys.raw(40, 0x100 | 0x400 | 0x10000), 0);
    EXPECT_EQ(hotKeys.raw(40, 0x100, HotKeyEventKind::rawKeyUp), 0);
    EXPECT_EQ(hotKeys.raw(40, 0x100 | 0x200), -9874);
    EXPECT_EQ(hotKeys.raw(40, 0x100 | 0x20000), -9874);
    EXPECT_EQ(hotKeys.raw(41, 0x100), -9874);
    EXPECT_EQ(takeHeard(), "kk'");

    hotKeys.refusals[40] = HotKeyStatus::taken;
    testing::internal::CaptureStdout();
    closeMenu();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error registering hotkey ⌘K: 10\n");
    EXPECT_EQ(hotKeys.takeCalls(),
              (Lines{"register 40/256 as 1", "register 1/2048 as 2", "-raw", "+hot"}));
    EXPECT_EQ(hotKeys.fire(1), -9874) << "a refused entry is gone";
}

TEST_F(HotKeyTableTest, RunsTheActionsOfAllNamesWithTheShortcut) {
    store("s", R"({"carbonKeyCode":1,"carbonModifiers":2048})");
    shortcuts.name("s");
    EXPECT_TRUE(hotKeys.takeCalls().empty())
        << "a stored shortcut without action is not registered";
    const auto a = bind("a", commandK);
    bind("b", commandK);
    shortcuts.onKeyDown(a, hear("2"));
    hotKeys.fire(1);
    hotKeys.fire(1, HotKeyEventKind::hotKeyReleased);
    EXPECT_EQ(takeHeard(), "a2ba'b'");

    shortcuts.setHandlersPaused(true);
    EXPECT_EQ(hotKeys.fire(1), 0) << "still registered";
    shortcuts.setHandlersPaused(false);
    store("b", false);
    hotKeys.fire(1);
    EXPECT_EQ(takeHeard(), "a2") << "b has no shortcut now";
}

TEST_F(HotKeyTableTest, AnActionMayRemoveActions) {
    const auto a = bind("a", commandK);
    shortcuts.onKeyDown(a, [&] {
        shortcuts.removeAllHandlers();
        shortcuts.setShortcut({}, a);
    });
    shortcuts.onKeyDown(a, hear("2"));
    EXPECT_EQ(hotKeys.fire(1), 0);
    EXPECT_EQ(takeHeard(), "a2");
    EXPECT_EQ(hotKeys.fire(1), -9874);
}

} // namespace
} // namespace calmora
