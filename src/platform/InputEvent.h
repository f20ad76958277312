#pragma once

#include "platform/EventMonitor.h"
#include "platform/Geometry.h"

#include <cstdint>

namespace calmora {

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

} // namespace calmora
