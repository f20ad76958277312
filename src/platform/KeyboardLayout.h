#pragma once

#include "support/Subscription.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace calmora {

/// The user's keyboard layout.
class KeyboardLayout {
  public:
    virtual ~KeyboardLayout() = default;

    /// The text that a key gives without modifiers in the current layout that can write ASCII, as
    /// UTF-8; a dead key gives its spacing form. `keyCode` is a virtual key code. Absent when
    /// there is no layout, no such key, or the key gives no text.
    [[nodiscard]] virtual std::optional<std::string> character(std::int64_t keyCode) const = 0;

    /// The virtual key code of a key as the window system numbers it in its events; absent when
    /// the key has none.
    [[nodiscard]] virtual std::optional<std::int64_t> keyCode(std::uint32_t nativeKey) const = 0;

    /// Tells that character() may answer differently now.
    [[nodiscard]] virtual Subscription onChanged(std::function<void()> handler) = 0;
};

} // namespace calmora
