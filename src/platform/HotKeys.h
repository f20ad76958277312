#pragma once

#include "support/Subscription.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>

namespace calmora {

/// Status numbers that hot keys deal in; every other number is the window system's own error code.
struct HotKeyStatus {
    /// Done; or, as an answer to an event: handled.
    static constexpr std::int32_t success = 0;
    /// There is no window system to ask.
    static constexpr std::int32_t unavailable = 1;
    /// The key or the modifiers can never be a hot key (X11: BadValue).
    static constexpr std::int32_t badValue = 2;
    /// Another program has the combination (X11: BadAccess).
    static constexpr std::int32_t taken = 10;
    /// An event does not carry what was asked for.
    static constexpr std::int32_t parameterNotFound = -9870;
    /// The answer to an event that is not for us.
    static constexpr std::int32_t notHandled = -9874;
};

/// Names a hot key; comes back with each of its events.
struct HotKeyIdentifier {
    /// Tells whose hot key it is: a four-character code.
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
    /// Every key, for the time in which no hot key can fire.
    rawKeys,
};

/// An event of the keyboard. A parameter that cannot be read holds the status of the attempt.
struct HotKeyEvent {
    template <typename Value>
    using Parameter = std::variant<Value, std::int32_t>;

    HotKeyEventKind kind = HotKeyEventKind::hotKeyPressed;
    /// Carried by hot-key events.
    Parameter<HotKeyIdentifier> identifier{std::in_place_index<1>, HotKeyStatus::parameterNotFound};
    /// Virtual key code; carried by raw key events.
    Parameter<std::uint32_t> keyCode{std::in_place_index<1>, HotKeyStatus::parameterNotFound};
    /// Carbon modifier mask; carried by raw key events.
    Parameter<std::uint32_t> keyModifiers{std::in_place_index<1>, HotKeyStatus::parameterNotFound};
};

/// Answer to the registration of a hot key.
struct HotKeyRegistration {
    /// HotKeyStatus::success, or why it was refused.
    std::int32_t status = HotKeyStatus::unavailable;
    /// Holds the hot key; empty when it was refused.
    Subscription hotKey;
};

/// Keys that reach this program from any application. Main thread.
class HotKeys {
  public:
    /// Answers HotKeyStatus::success when it handled the event, which then goes nowhere else.
    using Handler = std::function<std::int32_t(const HotKeyEvent&)>;

    virtual ~HotKeys() = default;

    /// Why there can be no hot keys here, as a text to show (a key of LocalizedStrings); absent
    /// where there can.
    [[nodiscard]] virtual std::optional<std::string> unavailableReason() const = 0;

    /// Takes a key, given as virtual key code and Carbon modifier mask, for this program, whatever
    /// application has the keyboard, until the token in the answer ends.
    [[nodiscard]] virtual HotKeyRegistration
    registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyIdentifier identifier) = 0;

    /// Installs the one handler, which is told nothing until event types are added. However long a
    /// hot key is held it tells one press and one release. An empty token when there are no events
    /// to be had.
    [[nodiscard]] virtual Subscription installEventHandler(Handler handler) = 0;

    /// Starts to tell events of these types; does nothing when they are told already.
    virtual void addEventTypes(HotKeyEventTypes types) = 0;

    /// Stops telling events of these types.
    virtual void removeEventTypes(HotKeyEventTypes types) = 0;
};

} // namespace calmora
