// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geometry.h"
#include "support/Subscription.h"

#include <cstdint>
#include <functional>

namespace calmora {

/// A set of modifier keys that are down. The values are those of stored shortcuts.
struct ModifierFlags {
    static constexpr std::uint32_t capsLock = 1U << 16;
    static constexpr std::uint32_t shift = 1U << 17;
    static constexpr std::uint32_t control = 1U << 18;
    static constexpr std::uint32_t option = 1U << 19;
    static constexpr std::uint32_t command = 1U << 20;
    static constexpr std::uint32_t numericPad = 1U << 21;
    static constexpr std::uint32_t function = 1U << 23;

    std::uint32_t mask = 0;

    /// Whether every key of `keys` is down.
    [[nodiscard]] bool contains(std::uint32_t keys) const { return (mask & keys) == keys; }

    friend bool operator==(const ModifierFlags&, const ModifierFlags&) = default;
};

/// Keyboard events of this program's windows.
class EventMonitor {
  public:
    virtual ~EventMonitor() = default;

    /// Reports the modifiers after each change while one of the program's windows has the keyboard
    /// focus, and again when it regains the focus. Never consumes the event.
    [[nodiscard]] virtual Subscription
    onModifierFlagsChanged(std::function<void(ModifierFlags)> handler) = 0;
};

/// Kinds of input. The values number the bits of event masks.
enum class InputEventType : std::uint32_t {
    leftMouseDown = 1,
    leftMouseUp = 2,
    rightMouseDown = 3,
    rightMouseUp = 4,
    keyDown = 10,
    keyUp = 11,
};

/// One keyboard or pointer event of this program.
struct InputEvent {
    InputEventType type = InputEventType::keyDown;
    /// Virtual key code of the physical key, negative if it has none; for key events only.
    std::int64_t keyCode = 0;
    /// The modifiers that were down.
    ModifierFlags modifiers;
    /// An auto-repeated key.
    bool isRepeat = false;
    /// Of the pointer, in the receiver's coordinates.
    Point location;
};

/// Filters the input to the program's windows.
class InputGate {
  public:
    virtual ~InputGate() = default;

    /// Discards clicks and keys that are queued but not delivered. Call after work that blocked the
    /// main loop: what the user aimed at may have moved.
    virtual void discardQueuedInput() = 0;
};

} // namespace calmora
