// SPDX-License-Identifier: MIT
#pragma once

#include "support/Subscription.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace calmora {

/// Status numbers of hot keys; any other number is an error code of the window system.
struct HotKeyStatus {
    /// Success; for an event: handled.
    static constexpr std::int32_t success = 0;
    /// There is no window system.
    static constexpr std::int32_t unavailable = 1;
    /// The key or the modifiers can never be a hot key (X11: BadValue).
    static constexpr std::int32_t badValue = 2;
    /// Another program has the combination (X11: BadAccess).
    static constexpr std::int32_t taken = 10;
    /// The event has no such parameter.
    static constexpr std::int32_t parameterNotFound = -9870;
    /// The event is not ours.
    static constexpr std::int32_t notHandled = -9874;
};

/// Identifies a hot key in its events.
struct HotKeyIdentifier {
    /// The owner of the hot key, a four-character code.
    std::uint32_t signature = 0;
    std::uint32_t id = 0;

    friend bool operator==(const HotKeyIdentifier&, const HotKeyIdentifier&) = default;
};

/// What happened on the keyboard.
enum class HotKeyEventKind : std::uint32_t {
    rawKeyDown = 1,
    rawKeyUp = 3,
    hotKeyPressed = 5,
    hotKeyReleased = 6,
};

/// Groups of events that can be listened to.
enum class HotKeyEventTypes {
    /// Presses and releases of registered hot keys.
    hotKeys,
    /// Every key, for while no hot key can fire.
    rawKeys,
};

/// A keyboard event. An unreadable parameter holds the status of the attempt.
struct HotKeyEvent {
    template <typename Value>
    using Parameter = std::variant<Value, std::int32_t>;

    HotKeyEventKind kind = HotKeyEventKind::hotKeyPressed;
    /// Set for hot-key events.
    Parameter<HotKeyIdentifier> identifier{std::in_place_index<1>, HotKeyStatus::parameterNotFound};
    /// Virtual key code; set for raw key events.
    Parameter<std::uint32_t> keyCode{std::in_place_index<1>, HotKeyStatus::parameterNotFound};
    /// Carbon modifier mask; set for raw key events.
    Parameter<std::uint32_t> keyModifiers{std::in_place_index<1>, HotKeyStatus::parameterNotFound};
};

/// Result of a registration.
struct HotKeyRegistration {
    /// HotKeyStatus::success, or why it was refused.
    std::int32_t status = HotKeyStatus::unavailable;
    /// Holds the hot key; empty when it was refused.
    Subscription hotKey;
};

/// A key, as virtual key code and Carbon modifier mask.
struct HotKeyCombination {
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;

    friend auto operator<=>(const HotKeyCombination&, const HotKeyCombination&) = default;
};

/// An action with a shortcut, for desktops that know their programs' actions.
struct HotKeyAction {
    /// The same in every session, such as "quitAll".
    std::string id;
    /// In the user's language.
    std::string description;
    /// A shell command that does the same.
    std::string command;
    /// What the user has recorded; absent if nothing.
    std::optional<HotKeyCombination> combination;
};

/// What the user must know of an action's shortcut beside what they have recorded.
struct HotKeyHint {
    enum class Kind {
        none,
        /// `text` belongs into the configuration of the desktop.
        toCopy,
        /// `text` is what the desktop calls the key that it uses.
        assigned,
        /// The desktop has assigned no key.
        unassigned,
    };
    Kind kind = Kind::none;
    std::string text = {};

    friend bool operator==(const HotKeyHint&, const HotKeyHint&) = default;
};

/// Global hot keys. Main thread.
class HotKeys {
  public:
    /// Returns HotKeyStatus::success if it handled the event, which then goes nowhere else.
    using Handler = std::function<std::int32_t(const HotKeyEvent&)>;

    virtual ~HotKeys() = default;

    /// Why hot keys are unavailable, as a key of LocalizedStrings; absent if they are available.
    [[nodiscard]] virtual std::optional<std::string> unavailableReason() const = 0;

    /// Grabs a key, given as virtual key code and Carbon modifier mask, whatever application has
    /// the focus, until the token in the result ends.
    [[nodiscard]] virtual HotKeyRegistration
    registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyIdentifier identifier) = 0;

    /// Installs the one handler, which gets no events until event types are added. A held hot key
    /// gives one press and one release. An empty token if there can be no events.
    [[nodiscard]] virtual Subscription installEventHandler(Handler handler) = 0;

    /// Starts delivering events of these types.
    virtual void addEventTypes(HotKeyEventTypes types) = 0;

    /// Stops delivering events of these types.
    virtual void removeEventTypes(HotKeyEventTypes types) = 0;

    /// What hot keys cannot do here, or how the desktop treats them, as a key of LocalizedStrings;
    /// empty if they work everywhere.
    [[nodiscard]] virtual std::string limitation() const { return {}; }

    /// Says which actions there are now. A desktop that wants to know asks for them whenever hot
    /// keys are registered or released.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): who overrides it keeps it.
    virtual void setActions(std::function<std::vector<HotKeyAction>()>) {}

    /// What to show beside the shortcut of the action with this id.
    [[nodiscard]] virtual HotKeyHint hint(const std::string& /*actionId*/) const { return {}; }

    /// Calls `handler` when hints, the limitation or the availability may have changed without a
    /// change of the recorded shortcuts.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): who overrides it keeps it.
    [[nodiscard]] virtual Subscription onHintsChanged(std::function<void()> /*handler*/) {
        return {};
    }
};

} // namespace calmora
