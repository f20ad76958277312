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

/// What the module meets the machine through. Everything must outlive the module.
struct KeyboardShortcutsPlatform {
    UserDefaults& defaults;
    NotificationCenter& notifications;
    HotKeys& hotKeys;
    KeyboardLayout& layout;
    LocalizedStrings& strings;
    Text& text;
};

/// What a key did.
enum class KeyboardShortcutEvent { keyDown, keyUp };

/// Global shortcuts by name: stores them, registers them with the system and runs the actions of
/// the names whose shortcut fires. Its one owner makes it and hands it down; there is one for the
/// life of the process. Nothing is cached: every question about a shortcut reads the defaults.
/// Main thread.
class KeyboardShortcuts {
  public:
    using Name = ShortcutName;
    using Action = std::function<void()>;

    /// Notification of a changed shortcut, posted before the change returns; its user info has the
    /// Name under "name".
    static constexpr const char* shortcutByNameDidChange =
        "KeyboardShortcuts_shortcutByNameDidChange";
    /// What the keys in the user defaults start with; the rest is the name.
    static constexpr const char* defaultsKeyPrefix = "KeyboardShortcuts_";

    explicit KeyboardShortcuts(const KeyboardShortcutsPlatform& platform);

    KeyboardShortcuts(const KeyboardShortcuts&) = delete;
    KeyboardShortcuts& operator=(const KeyboardShortcuts&) = delete;

    /// Makes a name. With a default, stores it unless anything at all is stored for the name.
    Name name(std::string rawValue, std::optional<Shortcut> defaultShortcut = {});

    /// The shortcut stored for a name; absent when there is none or it cannot be read.
    [[nodiscard]] std::optional<Shortcut> getShortcut(const Name& name) const;

    /// Stores and registers a shortcut, or clears the one that there is. A cleared name keeps its
    /// default away. Tells of the change; clearing a name that has no shortcut is none.
    void setShortcut(const std::optional<Shortcut>& shortcut, const Name& name);

    /// Gives each name its default shortcut again, or none.
    void reset(const std::vector<Name>& names);

    /// Removes everything that is stored under the module's prefix and readable, whatever the
    /// defaults of the names.
    void resetAll();

    /// Adds an action for when the name's shortcut is pressed, and registers the shortcut.
    void onKeyDown(const Name& name, Action action);

    /// The same for its release.
    void onKeyUp(const Name& name, Action action);

    /// Drops the name's actions. Its shortcut is released unless a name that has actions uses it.
    void removeHandler(const Name& name);

    /// Drops all actions and releases their shortcuts.
    void removeAllHandlers();

    /// Registers the shortcuts of these names.
    void enable(const std::vector<Name>& names);

    /// Releases the shortcuts of these names.
    void disable(const std::vector<Name>& names);

    /// Whether the name has a shortcut that is registered, the module being enabled.
    [[nodiscard]] bool isEnabled(const Name& name) const;

    /// Whether the module has registered the shortcut, refused or not.
    [[nodiscard]] bool isRegistered(const Shortcut& shortcut) const {
        return registeredShortcuts_.contains(shortcut);
    }

    /// Tells the presses and releases of the name's shortcut until the token ends. Registers
    /// nothing by itself.
    [[nodiscard]] Subscription events(const Name& name,
                                      std::function<void(KeyboardShortcutEvent)> handler);

    /// Whether hot keys are listened to at all; true at first.
    [[nodiscard]] bool isEnabled() const { return isEnabled_; }

    void setEnabled(bool isEnabled);

    /// While true the hot keys stay taken, but firing runs nothing; false at first.
    [[nodiscard]] bool handlersPaused() const { return handlersPaused_; }

    void setHandlersPaused(bool paused) { handlersPaused_ = paused; }

    /// Why no shortcut can work here, as a text to show (a key of LocalizedStrings); absent
    /// where they can.
    [[nodiscard]] std::optional<std::string> unavailableReason() const;

    /// Writes shortcuts out for people.
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
