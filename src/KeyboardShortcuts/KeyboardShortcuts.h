// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/CarbonKeyboardShortcuts.h"
#include "KeyboardShortcuts/Shortcut.h"
#include "KeyboardShortcuts/ShortcutText.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace calmora {

class HotKeys;
class KeyboardLayout;
class LocalizedStrings;
class NotificationCenter;
class Text;
class UserDefaults;

/// What the module needs of the platform. Everything must outlive the module.
struct KeyboardShortcutsPlatform {
    UserDefaults& defaults;
    NotificationCenter& notifications;
    HotKeys& hotKeys;
    KeyboardLayout& layout;
    LocalizedStrings& strings;
    Text& text;
};

/// A press or a release.
enum class KeyboardShortcutEvent { keyDown, keyUp };

/// Global shortcuts by name: stores them, registers them with the system and runs the actions of
/// the names whose shortcut fires. Make one for the life of the process. Nothing is cached: every
/// read of a shortcut reads the defaults. Main thread.
class KeyboardShortcuts {
  public:
    using Name = ShortcutName;
    using Action = std::function<void()>;

    /// Notification of a changed shortcut, posted before the change returns; its user info has the
    /// Name under "name".
    static constexpr const char* shortcutByNameDidChange =
        "KeyboardShortcuts_shortcutByNameDidChange";
    /// Prefix of the keys in the user defaults; the rest is the name.
    static constexpr const char* defaultsKeyPrefix = "KeyboardShortcuts_";

    explicit KeyboardShortcuts(const KeyboardShortcutsPlatform& platform);

    KeyboardShortcuts(const KeyboardShortcuts&) = delete;
    KeyboardShortcuts& operator=(const KeyboardShortcuts&) = delete;

    /// Makes a name. Stores a default shortcut unless the store has any value for the name.
    Name name(std::string rawValue, std::optional<Shortcut> defaultShortcut = {});

    /// The shortcut stored for a name; absent if there is none or it cannot be read.
    [[nodiscard]] std::optional<Shortcut> getShortcut(const Name& name) const;

    /// Stores and registers a shortcut, or clears it. Posts the notification, except when the
    /// cleared name has no shortcut. A cleared name does not get its default again.
    void setShortcut(const std::optional<Shortcut>& shortcut, const Name& name);

    /// Gives each name its default shortcut, or none.
    void reset(const std::vector<Name>& names);

    /// Removes every readable shortcut under the module's prefix and ignores defaults.
    void resetAll();

    /// Adds an action for when the name's shortcut is pressed, and registers the shortcut.
    void onKeyDown(const Name& name, Action action);

    /// Adds an action for when it is released, and registers the shortcut.
    void onKeyUp(const Name& name, Action action);

    /// Removes the name's actions. Releases its shortcut unless another name with actions uses it.
    void removeHandler(const Name& name);

    /// Removes all actions and releases their shortcuts.
    void removeAllHandlers();

    /// Registers the shortcuts of these names.
    void enable(const std::vector<Name>& names);

    /// Releases the shortcuts of these names.
    void disable(const std::vector<Name>& names);

    /// Whether the module is enabled and the name has a registered shortcut.
    [[nodiscard]] bool isEnabled(const Name& name) const;

    /// Whether the module has registered the shortcut, even if the system refused it.
    [[nodiscard]] bool isRegistered(const Shortcut& shortcut) const {
        return registeredShortcuts_.contains(shortcut);
    }

    /// Calls `handler` for presses and releases of the name's shortcut until the token ends.
    /// Registers no shortcut.
    [[nodiscard]] Subscription events(const Name& name,
                                      std::function<void(KeyboardShortcutEvent)> handler);

    /// Whether the module listens to hot keys; initially true.
    [[nodiscard]] bool isEnabled() const { return isEnabled_; }

    void setEnabled(bool isEnabled);

    /// While true the hot keys stay registered, but no action runs; initially false.
    [[nodiscard]] bool handlersPaused() const { return handlersPaused_; }

    void setHandlersPaused(bool paused) { handlersPaused_ = paused; }

    /// Why no shortcut can work here, as a key of LocalizedStrings; absent if shortcuts work.
    [[nodiscard]] std::optional<std::string> unavailableReason() const {
        return platform_.hotKeys.unavailableReason();
    }

    /// Formats shortcuts.
    [[nodiscard]] const ShortcutText& text() const { return text_; }

  private:
    using Actions = std::map<Name, std::vector<Action>>;

    void setUp();
    void setMenuOpen(bool isOpen);
    void registerStored(const Name& name);
    void registerShortcut(const Shortcut& shortcut);
    void unregisterShortcut(const Shortcut& shortcut);
    void notify(const Name& name);
    [[nodiscard]] std::set<Name> namesWithActions() const;
    void dispatch(const Shortcut& shortcut, KeyboardShortcutEvent event);

    KeyboardShortcutsPlatform platform_;
    ShortcutText text_;
    CarbonKeyboardShortcuts hotKeys_;
    std::set<Shortcut> registeredShortcuts_;
    Actions keyDownHandlers_;
    Actions keyUpHandlers_;
    std::map<Name, Signal<KeyboardShortcutEvent>> streamHandlers_;
    bool isEnabled_ = true;
    bool isMenuOpen_ = false;
    bool handlersPaused_ = false;
    bool isSetUp_ = false;
    Subscription menuBegan_;
    Subscription menuEnded_;
};

} // namespace calmora
