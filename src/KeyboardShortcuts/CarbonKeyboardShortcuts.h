// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Shortcut.h"
#include "KeyboardShortcuts/ShortcutText.h"
#include "platform/HotKeys.h"
#include "support/Subscription.h"

#include <cstdint>
#include <functional>
#include <map>

namespace calmora {

/// The table of hot keys: registers shortcuts with the system and calls back when they fire. While
/// one of the program's menus is open no hot key can fire; the table then releases the hot keys and
/// matches all key events instead. Main thread.
class CarbonKeyboardShortcuts {
  public:
    using Callback = std::function<void(const Shortcut&)>;

    /// The signature of this program's hot keys: "CLMH".
    static constexpr std::uint32_t signature = 0x434C4D48;

    /// The arguments must outlive this object.
    CarbonKeyboardShortcuts(HotKeys& hotKeys, const ShortcutText& text)
        : hotKeys_(hotKeys), text_(text) {}

    CarbonKeyboardShortcuts(const CarbonKeyboardShortcuts&) = delete;
    CarbonKeyboardShortcuts& operator=(const CarbonKeyboardShortcuts&) = delete;

    /// Registers a shortcut under the next identifier. A refusal writes one line to standard
    /// output and leaves no entry; the identifier stays consumed.
    void registerShortcut(const Shortcut& shortcut, Callback onKeyDown, Callback onKeyUp);

    /// Removes every entry with this shortcut and releases its hot key.
    void unregisterShortcut(const Shortcut& shortcut);

    /// Chooses what to listen to: hot keys, raw keys while a menu is open, or nothing. Takes effect
    /// at once, or with the first successful registration.
    void update(bool isEnabled, bool isMenuOpen);

    /// Handles a keyboard event: HotKeyStatus::success if it ran a callback,
    /// HotKeyStatus::notHandled if no entry matches, or the status of an unreadable parameter.
    std::int32_t handle(const HotKeyEvent& event);

  private:
    /// One entry of the table, under its identifier.
    struct HotKey {
        Shortcut shortcut;
        /// Empty while the hot key is suspended.
        Subscription carbonHotKey;
        Callback onKeyDown;
        Callback onKeyUp;
    };

    [[nodiscard]] Subscription registerWithSystem(const Shortcut& shortcut, std::int64_t id);
    void updateEventHandler();
    void resume();
    void suspend();
    std::int32_t matchHotKey(const HotKeyEvent& event);
    std::int32_t matchRawKey(const HotKeyEvent& event);

    HotKeys& hotKeys_;
    const ShortcutText& text_;
    std::map<std::int64_t, HotKey> table_;
    std::int64_t lastId_ = 0;
    bool isEnabled_ = true;
    bool isMenuOpen_ = false;
    Subscription eventHandler_;
};

} // namespace calmora
