// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/ShortcutRecorder.h"

#include "platform/KeyboardLayout.h"
#include "platform/LocalizedStrings.h"
#include "platform/NotificationCenter.h"
#include "platform/SystemShortcuts.h"
#include "support/TextHelpers.h"

#include <algorithm>
#include <span>
#include <utility>

namespace calmora {
namespace {

/// A click this near to the control counts as a click on it.
constexpr int clickMargin = 3;

constexpr std::size_t forceButton = 1;

bool isOutside(Point point, Size size) {
    return point.x < -clickMargin || point.y < -clickMargin ||
           point.x >= size.width + clickMargin || point.y >= size.height + clickMargin;
}

/// The modifiers without Caps Lock and the keypad's flag.
std::uint32_t countingModifiers(const InputEvent& event) {
    constexpr std::uint32_t deviceIndependent = 0xFFFF0000;
    return event.modifiers.mask & deviceIndependent &
           ~(ModifierFlags::capsLock | ModifierFlags::numericPad);
}

/// Keys that only change a modifier.
bool isModifierKey(Key key) {
    return key >= Key::rightCommand && key <= Key::function;
}

/// Whether it can be no hot key: a key without a number, or Num Lock.
bool isImpossible(Key key) {
    return key < Key(0) || key == Key::keypadClear;
}

bool isFunctionKey(Key key) {
    const SpecialKey* special = specialKey(key);
    return special && special->functionNumber > 0;
}

bool chooses(const Shortcut& shortcut, const std::string& keyText, const MenuKey& key) {
    std::string equivalent = key.keyEquivalent;
    ModifierFlags mask = key.modifierMask;
    const std::string lower = loweredAscii(equivalent);
    if (shortcut.modifiers().contains(ModifierFlags::shift) && lower != equivalent) {
        equivalent = lower;
        mask.mask |= ModifierFlags::shift;
    }
    return keyText == equivalent && shortcut.modifiers() == mask;
}

/// The title of the first item, depth first, with this shortcut; absent if there is none.
std::optional<std::string> menuConflict(const Shortcut& shortcut,
                                        std::span<const MainMenuItem> menu,
                                        const ShortcutText& text) {
    const auto keyText = text.menuKeyText(shortcut);
    for (const MainMenuItem& item : menu) {
        if (keyText && std::ranges::any_of(item.keys, [&](const MenuKey& key) {
                return chooses(shortcut, *keyText, key);
            })) {
            return item.title;
        }
        if (auto found = menuConflict(shortcut, item.submenu, text)) {
            return found;
        }
    }
    return std::nullopt;
}

/// Whether one of the desktop's enabled shortcuts is the same. F12 alone never is.
bool isTakenBySystem(const Shortcut& shortcut, std::span<const SymbolicHotKey> systemShortcuts) {
    if (shortcut == Shortcut{Key::f12, 0}) {
        return false;
    }
    return std::ranges::any_of(systemShortcuts, [&](const SymbolicHotKey& entry) {
        return entry.isEnabled.value_or(false) && entry.keyCode && entry.modifiers &&
               shortcut == Shortcut{*entry.keyCode, normalizedCarbonModifiers(*entry.modifiers)};
    });
}

} // namespace

ShortcutRecorder::ShortcutRecorder(const RecorderEnvironment& environment, RecorderControl& control,
                                   KeyboardShortcuts::Name name, OnChange onChange)
    : environment_(environment), control_(control), name_(std::move(name)),
      onChange_(std::move(onChange)) {
    control_.setPlaceholder(environment_.strings.text("record_shortcut"));
    setStoredText();
    nameChanges_ = environment_.notifications.observe(
        KeyboardShortcuts::shortcutByNameDidChange, [this](const Notification& notification) {
            const auto* changed = notification.info<KeyboardShortcuts::Name>("name");
            if (changed && *changed == name_) {
                setStoredText();
            }
        });
    layoutChanges_ = environment_.layout.onChanged([this] { setStoredText(); });
}

ShortcutRecorder::~ShortcutRecorder() {
    if (isRecording_) {
        endRecording();
    }
}

void ShortcutRecorder::setShortcutName(const KeyboardShortcuts::Name& name) {
    const bool isSame = name == name_;
    name_ = name;
    if (!isSame) {
        setStoredText();
    }
}

void ShortcutRecorder::startRecording() {
    if (isRecording_ || !control_.isInWindow()) {
        return;
    }
    isRecording_ = true;
    control_.setPlaceholder(environment_.strings.text("press_shortcut"));
    control_.showClearButton(!text_.empty());
    environment_.shortcuts.setHandlersPaused(true);
    environment_.notifications.post({activeStatusDidChange, {{"isActive", true}}});
    control_.monitorEvents(true);
}

void ShortcutRecorder::endRecording() {
    if (!std::exchange(isRecording_, false)) {
        return;
    }
    control_.monitorEvents(false);
    control_.setPlaceholder(environment_.strings.text("record_shortcut"));
    control_.showClearButton(!text_.empty());
    environment_.shortcuts.setHandlersPaused(false);
    environment_.notifications.post({activeStatusDidChange, {{"isActive", false}}});
}

void ShortcutRecorder::textDidChange(const std::string& text) {
    const std::weak_ptr life = life_;
    text_ = text;
    if (text.empty()) {
        environment_.shortcuts.setShortcut({}, name_);
        if (!life.expired() && onChange_) {
            onChange_({});
        }
        if (life.expired()) {
            return;
        }
    }
    control_.showClearButton(!text_.empty());
    if (text.empty()) {
        control_.focus();
    }
}

RecorderVerdict ShortcutRecorder::handle(const InputEvent& event) {
    using enum InputEventType;
    const bool isMouseUp = event.type == leftMouseUp || event.type == rightMouseUp;
    if (isMouseUp && isOutside(event.location, control_.bounds())) {
        control_.blur();
        return RecorderVerdict::pass;
    }
    if (event.type != keyDown && event.type != keyUp) {
        return RecorderVerdict::swallow;
    }
    if (event.isRepeat || isModifierKey(event.keyCode)) {
        return RecorderVerdict::swallow;
    }
    return handleKey(event);
}

void ShortcutRecorder::showText(const std::optional<Shortcut>& shortcut) {
    const ShortcutText& text = environment_.shortcuts.text();
    text_ = shortcut ? text.description(*shortcut) : std::string();
    control_.showText(text_, shortcut ? text.spokenDescription(*shortcut) : std::string());
    control_.showClearButton(!text_.empty());
}

RecorderVerdict ShortcutRecorder::handleKey(const InputEvent& event) {
    const std::uint32_t modifiers = countingModifiers(event);
    const Key key{event.keyCode};
    if ((modifiers == 0 || modifiers == ModifierFlags::shift) && key == Key::tab) {
        control_.blur();
        return RecorderVerdict::pass;
    }
    if (modifiers == 0 && key == Key::escape) {
        control_.blur();
        return RecorderVerdict::swallow;
    }
    if (modifiers == 0 && (key == Key::delete_ || key == Key::deleteForward)) {
        control_.clickClearButton();
        return RecorderVerdict::swallow;
    }
    const bool hasModifier = (modifiers & ~(ModifierFlags::shift | ModifierFlags::function)) != 0;
    if (isImpossible(key) || (!hasModifier && !isFunctionKey(key))) {
        return refuse();
    }
    const auto shortcut = Shortcut::fromEvent(event);
    return shortcut ? record(*shortcut) : refuse();
}

RecorderVerdict ShortcutRecorder::record(const Shortcut& shortcut) {
    const LocalizedStrings& strings = environment_.strings;
    const ShortcutText& text = environment_.shortcuts.text();
    if (const auto title = menuConflict(shortcut, environment_.mainMenu, text)) {
        ask({fillPlaceholders(strings.text("keyboard_shortcut_used_by_menu_item"), {*title}),
             {},
             {}});
        return RecorderVerdict::swallow;
    }
    if (isTakenBySystem(shortcut, environment_.systemShortcuts.copySymbolicHotKeys())) {
        const auto answer = ask({strings.text("keyboard_shortcut_used_by_system"),
                                 strings.text("keyboard_shortcuts_can_be_changed"),
                                 {strings.text("ok"), strings.text("force_use_shortcut")}});
        if (answer != forceButton) {
            return RecorderVerdict::swallow;
        }
    }
    const std::weak_ptr life = life_;
    showText(shortcut);
    environment_.shortcuts.setShortcut(shortcut, name_);
    if (!life.expired() && onChange_) {
        onChange_(shortcut);
    }
    if (!life.expired()) {
        control_.blur();
    }
    return RecorderVerdict::swallow;
}

std::optional<std::size_t> ShortcutRecorder::ask(const RecorderAlert& alert) {
    const std::weak_ptr life = life_;
    control_.blur();
    const std::size_t answer = control_.runAlert(alert);
    if (life.expired()) {
        return std::nullopt;
    }
    control_.focus();
    return answer;
}

} // namespace calmora
