// SPDX-License-Identifier: MIT
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

    /// The text of a key without modifiers in the current ASCII-capable layout, as UTF-8; a dead
    /// key gives its spacing form. `keyCode` is a virtual key code. Absent if there is no layout,
    /// no such key or no text.
    [[nodiscard]] virtual std::optional<std::string> character(std::int64_t keyCode) const = 0;

    /// The same with Shift.
    [[nodiscard]] virtual std::optional<std::string>
    shiftedCharacter(std::int64_t keyCode) const = 0;

    /// Whether a key, or with Shift, waits for a letter to put an accent on.
    [[nodiscard]] virtual bool isDeadKey(std::int64_t keyCode, bool withShift) const = 0;

    /// The virtual key code for the window system's own number of a key; absent if there is none.
    [[nodiscard]] virtual std::optional<std::int64_t> keyCode(std::uint32_t nativeKey) const = 0;

    /// Calls `handler` when character() may give other results.
    [[nodiscard]] virtual Subscription onChanged(std::function<void()> handler) = 0;
};

} // namespace calmora
