// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/KeyboardShortcuts.h"

#include "KeyboardShortcuts/ShortcutRecorder.h"
#include "fakes/FakeKeys.h"
#include "fakes/FakeLocalizedStrings.h"
#include "fakes/FakeUserDefaults.h"
#include "platform/NotificationCenter.h"
#include "platform/linux/IcuText.h"

namespace calmora {
namespace {

using Carbon = CarbonModifiers;
using Keys = ModifierFlags;
using Lines = std::vector<std::string>;

/// The module with fakes.
class ShortcutsFixture : public testing::Test {
  protected:
    ShortcutsFixture() { strings.texts.emplace("space_key", "space"); }

    /// The stored value of a name; "none" if there is none.
    [[nodiscard]] std::string stored(const std::string& name) const {
        return defaults.string("KeyboardShortcuts_" + name).value_or("none");
    }

    /// Appends to `heard` when an action runs.
    KeyboardShortcuts::Action hear(const std::string& what) {
        return [this, what] { heard += what; };
    }

    void store(const std::string& name, DefaultsValue value) {
        defaults.stored["KeyboardShortcuts_" + name] = std::move(value);
    }

    static constexpr Shortcut commandK{40, Carbon::command};
    static constexpr Shortcut optionS{1, Carbon::option};

    FakeUserDefaults defaults;
    NotificationCenter notifications;
    FakeHotKeys hotKeys;
    FakeKeyboardLayout layout;
    FakeLocalizedStrings strings;
    IcuText text{"C"};
    KeyboardShortcuts shortcuts{{defaults, notifications, hotKeys, layout, strings, text}};
    std::string heard;
};

class HotKeyTableTest : public ShortcutsFixture {
  protected:
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

TEST_F(HotKeyTableTest, RegistersWhatFitsIntoTheSystemsNumbers) {
    bind("k", commandK);
    bind("m", {46, Carbon::control});
    EXPECT_EQ(shortcuts.getShortcut(bind("n", {1LL << 32, 256})), (Shortcut{1LL << 32, 256}));
    bind("n", {40, -256});
    EXPECT_EQ(hotKeys.takeCalls(),
              (Lines{"register 40/256 as 1", "install", "-raw", "+hot", "register 46/4096 as 2"}));
    EXPECT_EQ(hotKeys.fire(2), 0);
    EXPECT_EQ(takeHeard(), "m");
}

TEST_F(HotKeyTableTest, AnOpenMenuSwitchesToRawKeys) {
    bind("k", commandK);
    bind("s", optionS);
    hotKeys.takeCalls();
    for (int times = 0; times < 2; ++times) {
        notifications.post({"NSMenuDidBeginTrackingNotification", {}});
    }
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
    notifications.post({"NSMenuDidEndTrackingNotification", {}});
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

TEST_F(HotKeyTableTest, SettingReplacesStoresAndNotifies) {
    const auto name = shortcuts.name("a");
    const Subscription observer = notifications.observe(
        "KeyboardShortcuts_shortcutByNameDidChange", [&](const Notification& notification) {
            const auto* changed = notification.info<ShortcutName>("name");
            heard += changed ? changed->rawValue + " " + stored(changed->rawValue) + ";" : "?";
        });
    shortcuts.setShortcut({}, name);
    EXPECT_TRUE(heard.empty() && defaults.writes.empty() && hotKeys.takeCalls().empty());
    shortcuts.setShortcut(commandK, name);
    shortcuts.setShortcut(commandK, name);
    shortcuts.setShortcut({}, name);
    EXPECT_EQ(hotKeys.takeCalls(), (Lines{"register 40/256 as 1", "install", "-raw", "+hot",
                                          "release 1", "register 40/256 as 2", "release 2"}));
    const std::string change = R"(a {"carbonKeyCode":40,"carbonModifiers":256};)";
    EXPECT_EQ(heard, change + change + "a none;");
}

TEST(ShortcutCoding, WritesTwoMembersAndReadsNothingElse) {
    EXPECT_EQ(encodeShortcut({40, 768}), R"({"carbonKeyCode":40,"carbonModifiers":768})");
    const Shortcut odd{-1, 9007199254740993};
    EXPECT_EQ(decodeShortcut(encodeShortcut(odd)), odd) << "no integer is rounded";
    const std::pair<std::string, std::optional<Shortcut>> rows[] = {
        {"\n{ \"carbonKeyCode\" : 40 , \"carbonModifiers\" : 768 }\t", Shortcut{40, 768}},
        {R"({"carbonKeyCode":40})", {}},
        {R"({"carbonKeyCode":"40","carbonModifiers":768})", {}},
        {R"({"carbonKeyCode":40.5,"carbonModifiers":768})", {}},
        {R"({"carbonKeyCode":9223372036854775808,"carbonModifiers":768})", {}},
        {R"({"carbonKeyCode":40,"carbonModifiers":768)", {}},
        {"\xFF\xFE", {}},
        {"{\"carbonKeyCode\":40,\"carbonModifiers\":768,\"\xC3\":0}", {}},
        {std::string(10'000'000, '['), {}},
        {std::string(10'000'000, ' ') + R"({"carbonKeyCode":40,"carbonModifiers":768})", {}},
    };
    for (const auto& [json, expected] : rows) {
        EXPECT_EQ(decodeShortcut(json), expected) << json.substr(0, 80);
    }
}

using ShortcutTextTest = ShortcutsFixture;

TEST_F(ShortcutTextTest, WritesModifiersThenTheKey) {
    layout.characters[41] = "ö";
    layout.characters[42] = "ab";

    const struct {
        Shortcut shortcut;
        const char* description;
        const char* spoken;
    } rows[] = {
        {{40, 0x1B00}, "⌃⌥⇧⌘K", "Control+Alt+Shift+Super+K"},
        {{49, Carbon::command}, "⌘Space", "Super+Space"},
        {{87, Carbon::option}, "⌥5\u20E3", "Alt+Keypad 5"},
        {{123, Carbon::function | 1}, "🌐\uFE0E←", "Fn+Left"},
        {{114, Carbon::command}, "⌘?\u20DD", "Super+Insert"},
        {{41, 0}, "Ö", "Ö"},
        {{42, Carbon::command}, "⌘\uFFFD", "Super+\uFFFD"},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(shortcuts.text().description(row.shortcut), row.description);
        EXPECT_EQ(shortcuts.text().spokenDescription(row.shortcut), row.spoken);
    }
}

/// A control in memory with a working focus.
class FakeControl final : public RecorderControl {
  public:
    [[nodiscard]] Size bounds() const override { return {130, 24}; }

    [[nodiscard]] bool isInWindow() const override { return hasWindow; }

    void showText(const std::string& newText, const std::string& newSpoken) override {
        text = newText;
        spoken = newSpoken;
    }

    void setPlaceholder(const std::string& shown) override { placeholder = shown; }

    void showClearButton(bool isShown) override { hasClearButton = isShown; }

    void clickClearButton() override { recorder->textDidChange(text = {}); }

    void monitorEvents(bool nowMonitoring) override { isMonitoring = nowMonitoring; }

    void blur() override {
        if (std::exchange(isFocused, false)) {
            recorder->endRecording();
        }
    }

    void focus() override {
        isFocused = true;
        recorder->startRecording();
    }

    void beep() override { ++beeps; }

    std::size_t runAlert(const RecorderAlert& alert) override {
        std::string line = alert.messageText + "|" + alert.informativeText;
        for (const std::string& button : alert.buttons) {
            line += "|" + button;
        }
        alerts.push_back(line + (recorder->isRecording() ? " while recording" : ""));
        return answer;
    }

    std::unique_ptr<ShortcutRecorder> recorder;
    std::string text;
    std::string spoken;
    std::string placeholder;
    bool hasClearButton = false;
    bool isMonitoring = false;
    bool isFocused = false;
    bool hasWindow = true;
    int beeps = 0;
    std::size_t answer = 0;
    Lines alerts;
};

class RecorderTest : public ShortcutsFixture {
  protected:
    RecorderTest() {
        strings.texts.emplace("keyboard_shortcut_used_by_menu_item", "used by %@");
        box.recorder = std::make_unique<ShortcutRecorder>(
            environment, box, shortcuts.name("a"), [this](const std::optional<Shortcut>& shortcut) {
                heard += shortcut ? shortcuts.text().description(*shortcut) : "cleared";
            });
    }

    RecorderVerdict press(std::int64_t keyCode, std::uint32_t modifiers = 0,
                          bool isRepeat = false) {
        return box.recorder->handle({InputEventType::keyDown, keyCode, {modifiers}, isRepeat, {}});
    }

    /// Everything that the last key may have changed, in one line.
    std::string outcome() {
        std::string line = box.isFocused ? "recording" : "idle";
        line += " " + stored("a");
        line += std::exchange(box.beeps, 0) > 0 ? " beep" : "";
        for (const std::string& alert : std::exchange(box.alerts, {})) {
            line += " [" + alert + "]";
        }
        return line + (heard.empty() ? "" : " " + std::exchange(heard, {}));
    }

    FakeSystemShortcuts desktop;
    RecorderEnvironment environment{
        shortcuts,
        notifications,
        desktop,
        layout,
        strings,
        MainMenu{{"File", {}, {{"Close", {{"w"}}, {}}, {"Close All", {{"W"}}, {}}}},
                 {"Quit", {{"q"}, {"q", {Keys::control}}}, {}}},
        {},
        hotKeys};
    FakeControl box;
    Lines statuses;
    Subscription statusObserver = notifications.observe(
        "KeyboardShortcuts_recorderActiveStatusDidChange", [this](const Notification& n) {
            const bool* isActive = n.info<bool>("isActive");
            statuses.push_back(!isActive ? "?" : *isActive ? "on" : "off");
        });
};

TEST_F(RecorderTest, RecordsOneShortcut) {
    EXPECT_EQ(box.placeholder + box.text, "record_shortcut");
    box.hasWindow = false;
    box.recorder->startRecording();
    EXPECT_FALSE(box.recorder->isRecording());
    box.hasWindow = true;

    box.focus();
    EXPECT_EQ(box.placeholder, "press_shortcut");
    EXPECT_TRUE(box.isMonitoring && shortcuts.handlersPaused());
    press(12, Keys::command, true);
    press(48, 0, true);
    EXPECT_EQ(outcome(), "recording none") << "auto-repeat is ignored";
    EXPECT_EQ(press(40, Keys::control | Keys::option), RecorderVerdict::swallow);
    EXPECT_EQ(outcome(), R"(idle {"carbonKeyCode":40,"carbonModifiers":6144} ⌃⌥K)");
    EXPECT_EQ(box.text + box.placeholder, "⌃⌥Krecord_shortcut");
    EXPECT_EQ(box.spoken, "Control+Alt+K");
    EXPECT_TRUE(!box.isMonitoring && box.hasClearButton);
    EXPECT_FALSE(shortcuts.handlersPaused());
    EXPECT_EQ(statuses, (Lines{"on", "off"}));
    box.focus();
    box.recorder.reset();
    EXPECT_FALSE(shortcuts.handlersPaused()) << "nothing stays paused";
    EXPECT_EQ(statuses.back(), "off");
}

TEST_F(RecorderTest, ChecksKeysInOrder) {
    desktop.entries = {{true, 46, Carbon::command},          {true, 111, 0},
                       {true, 111, Carbon::command | 0x400}, {false, 40, Carbon::command},
                       {std::nullopt, 40, Carbon::command},  {true, 40, std::nullopt},
                       {true, 12, Carbon::command}};
    const std::string taken = " [keyboard_shortcut_used_by_system|"
                              "keyboard_shortcuts_can_be_changed|ok|force_use_shortcut]";
    const auto accepted = [](int code, int mask, const std::string& change) {
        return "idle {\"carbonKeyCode\":" + std::to_string(code) +
               ",\"carbonModifiers\":" + std::to_string(mask) + "} " + change;
    };

    const struct {
        std::int64_t keyCode;
        std::uint32_t modifiers;
        std::string expected;
        RecorderVerdict verdict = RecorderVerdict::swallow;
    } rows[] = {
        {48, 0, "idle none", RecorderVerdict::pass},
        {48, Keys::shift, "idle none", RecorderVerdict::pass},
        {48, Keys::control | Keys::shift, accepted(48, 0x1200, "⌃⇧⇥")},
        {110, Keys::control, accepted(110, 0x1000, "⌃Menu")},
        {53, 0, "idle none"},
        {0, 0, "recording none beep"},
        {123, Keys::function | Keys::numericPad, "recording none beep"},
        {123, Keys::function | Keys::command, accepted(123, 256, "⌘←")},
        {87, Keys::numericPad, "recording none beep"},
        {96, 0, accepted(96, 0, "F5")},
        {51, Keys::command, accepted(51, 256, "⌘⌫")},
        {71, Keys::command, "recording none beep"},
        {55, Keys::command, "recording none"},
        {13, Keys::command, "recording none [used by Close|]"},
        {13, Keys::command | Keys::shift, "recording none [used by Close All|]"},
        {13, Keys::command | Keys::control, accepted(13, 0x1100, "⌃⌘W")},
        {12, Keys::control, "recording none [used by Quit|]"},
        {40, Keys::option | Keys::shift, accepted(40, 0xa00, "⌥⇧K")},
        {46, Keys::command, "recording none" + taken},
        {111, 0, accepted(111, 0, "F12")},
        {111, Keys::command, "recording none" + taken},
        {40, Keys::command, accepted(40, 256, "⌘K")},
    };

    for (const auto& row : rows) {
        defaults.stored.clear();
        box.focus();
        EXPECT_EQ(press(row.keyCode, row.modifiers), row.verdict) << row.keyCode;
        EXPECT_EQ(outcome(), row.expected) << row.keyCode << "/" << row.modifiers;
    }
    box.answer = 1;
    box.focus();
    press(46, Keys::command);
    EXPECT_EQ(outcome(), R"(idle {"carbonKeyCode":46,"carbonModifiers":256})" + taken + " ⌘M")
        << "forced";
}

TEST_F(RecorderTest, ClearsAndFollowsTheStoreAndTheLayout) {
    shortcuts.setShortcut(Shortcut{0, Carbon::command}, shortcuts.name("a"));
    layout.characters[0] = "q";
    layout.changed.emit();
    EXPECT_EQ(box.text, "⌘Q");
    for (const auto& [type, x, isOutside] : {std::tuple{InputEventType::leftMouseUp, -3, false},
                                             {InputEventType::leftMouseUp, 133, true},
                                             {InputEventType::leftMouseDown, 500, false}}) {
        box.focus();
        const auto verdict = box.recorder->handle({type, 0, {}, false, {x, 0}});
        EXPECT_EQ(verdict == RecorderVerdict::pass, isOutside);
        EXPECT_EQ(box.isFocused, !isOutside);
    }
    EXPECT_EQ(press(51), RecorderVerdict::swallow);
    EXPECT_EQ(outcome(), "recording none cleared");
    EXPECT_TRUE(box.text.empty() && !box.hasClearButton);
}

} // namespace
} // namespace calmora
