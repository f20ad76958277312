#include "unit/KeyboardShortcuts/ShortcutsFixture.h"

#include "KeyboardShortcuts/ShortcutRecorder.h"
#include "fakes/FakeKeys.h"

#include <memory>

namespace calmora {
namespace {

using Lines = std::vector<std::string>;

constexpr std::uint32_t controlKey = ModifierFlags::control;
constexpr std::uint32_t optionKey = ModifierFlags::option;
constexpr std::uint32_t shiftKey = ModifierFlags::shift;
constexpr std::uint32_t commandKey = ModifierFlags::command;
constexpr std::uint32_t functionKey = ModifierFlags::function;

/// A control in memory with a working focus.
class FakeControl final : public RecorderControl {
  public:
    [[nodiscard]] Size bounds() const override { return {130, 24}; }

    [[nodiscard]] bool isInWindow() const override { return hasWindow; }

    void showText(const std::string& newText, const std::string& newSpoken) override {
        text = newText;
        spoken = newSpoken;
    }

    void setPlaceholder(const std::string& newPlaceholder) override {
        placeholder = newPlaceholder;
    }

    void showClearButton(bool isShown) override { hasClearButton = isShown; }

    void clickClearButton() override {
        text.clear();
        recorder->textDidChange(text);
    }

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
        box.recorder = makeRecorder(box, "a");
    }

    std::unique_ptr<ShortcutRecorder> makeRecorder(FakeControl& target, const std::string& name) {
        return std::make_unique<ShortcutRecorder>(
            environment, target, shortcuts.name(name),
            [this](const std::optional<Shortcut>& shortcut) {
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
                 {"Quit", {{"q"}, {"q", {controlKey}}}, {}}},
        {},
        {}};
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
    press(12, commandKey, true);
    press(48, 0, true);
    EXPECT_EQ(outcome(), "recording none") << "auto-repeat is ignored";
    EXPECT_EQ(press(40, controlKey | optionKey), RecorderVerdict::swallow);
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
    desktop.entries = {
        {true, 46, CarbonModifiers::command},          {true, 111, 0},
        {true, 111, CarbonModifiers::command | 0x400}, {false, 40, CarbonModifiers::command},
        {std::nullopt, 40, CarbonModifiers::command},  {true, 40, std::nullopt},
        {true, 12, CarbonModifiers::command}};
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
        {48, shiftKey, "recording none beep"},
        {53, 0, "idle none"},
        {0, 0, "recording none beep"},
        {123, functionKey | ModifierFlags::numericPad, "recording none beep"},
        {87, ModifierFlags::numericPad, "recording none beep"},
        {96, 0, accepted(96, 0, "F5")},
        {51, commandKey, accepted(51, 256, "⌘⌫")},
        {71, commandKey, "recording none beep"},
        {55, commandKey, "recording none"},
        {13, commandKey, "recording none [used by Close|]"},
        {13, commandKey | shiftKey, "recording none [used by Close All|]"},
        {13, commandKey | controlKey, accepted(13, 0x1100, "⌃⌘W")},
        {12, controlKey, "recording none [used by Quit|]"},
        {40, optionKey | shiftKey, accepted(40, 0xa00, "⌥⇧K")},
        {46, commandKey, "recording none" + taken},
        {111, 0, accepted(111, 0, "F12")},
        {111, commandKey, "recording none" + taken},
        {40, commandKey, accepted(40, 256, "⌘K")},
    };

    for (const auto& row : rows) {
        defaults.stored.clear();
        box.focus();
        EXPECT_EQ(press(row.keyCode, row.modifiers), row.verdict) << row.keyCode;
        EXPECT_EQ(outcome(), row.expected) << row.keyCode << "/" << row.modifiers;
    }
    box.answer = 1;
    box.focus();
    press(46, commandKey);
    EXPECT_EQ(outcome(), R"(idle {"carbonKeyCode":46,"carbonModifiers":256})" + taken + " ⌘M")
        << "forced";
}

TEST_F(RecorderTest, ClicksOutsideEndRecordingAndPass) {
    using enum InputEventType;

    const struct {
        InputEventType type;
        Point location;
        bool isOutside;
    } rows[] = {
        {leftMouseUp, {-3, -3}, false},
        {leftMouseUp, {133, 0}, true},
        {rightMouseUp, {0, 27}, true},
        {leftMouseDown, {500, 0}, false},
    };

    for (const auto& row : rows) {
        box.focus();
        const auto verdict = box.recorder->handle({row.type, 0, {}, false, row.location});
        EXPECT_EQ(verdict == RecorderVerdict::pass, row.isOutside);
        EXPECT_EQ(box.isFocused, !row.isOutside);
    }
}

TEST_F(RecorderTest, DeleteClearsAndKeepsRecording) {
    for (const std::int64_t key : {51, 117}) {
        shortcuts.setShortcut(commandK, shortcuts.name("a"));
        box.focus();
        EXPECT_EQ(press(key), RecorderVerdict::swallow);
        EXPECT_EQ(outcome(), "recording none cleared");
        EXPECT_TRUE(box.text.empty() && !box.hasClearButton);
    }
}

TEST_F(RecorderTest, FollowsTheStoreAndTheLayout) {
    FakeControl second;
    second.recorder = makeRecorder(second, "a");
    box.focus();
    press(0, commandKey);
    shortcuts.setShortcut(optionS, shortcuts.name("b"));
    EXPECT_EQ(second.text, "⌘A") << "not another name's";
    layout.characters[0] = "q";
    layout.changed.emit();
    EXPECT_EQ(second.text, "⌘Q");
    shortcuts.setShortcut({}, shortcuts.name("a"));
    EXPECT_EQ(box.text + second.text, "");
}

} // namespace
} // namespace calmora
