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
/// one of the program's menus is open, when no hot key can fire, it gives the hot keys back and
/// looks for them among all keys instead. Main thread.
class CarbonKeyboardShortcuts {
  public:
    using Callback = std::function<void(const Shortcut&)>;

    /// The signature of this program's hot keys: "CLMH".
    static constexpr std::uint32_t signature = 0x434C4D48;

    /// What it is given must outlive it.
    CarbonKeyboardShortcuts(HotKeys& hotKeys, const ShortcutText& text)
        : hotKeys_(hotKeys), text_(text) {}

    CarbonKeyboardShortcuts(const CarbonKeyboardShortcuts&) = delete;
    CarbonKeyboardShortcuts& operator=(const CarbonKeyboardShortcuts&) = delete;

    /// Registers a shortcut under the next identifier. A refusal writes one line to standard
    /// output and leaves no entry; the identifier stays consumed.
    void registerShortcut(const Shortcut& shortcut, Callback onKeyDown, Callback onKeyUp);

    /// Forgets every entry with this shortcut and gives its hot key back.
    void unregisterShortcut(const Shortcut& shortcut);

    /// Chooses what is listened to: hot keys, raw keys while a menu is open, or nothing. Takes
    /// effect at once, or with the first successful registration.
    void update(bool isEnabled, bool isMenuOpen);

    /// Answers an event of the keyboard: HotKeyStatus::success when it ran a callback,
    /// HotKeyStatus::notHandled when it is not ours, or the status of a parameter that could not
    /// be read.
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
