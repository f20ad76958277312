// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace calmora {

/// Measures the time during which nobody could use the session.
class AwayTime {
  public:
    virtual ~AwayTime() = default;

    /// Follows the session from now on, or no longer. Off at first.
    virtual void setFollowing(bool follows) = 0;

    /// How long the machine has slept or the session has been locked since the program started, as
    /// far as it was followed. Never less than before.
    [[nodiscard]] virtual std::chrono::nanoseconds total() const = 0;
};

} // namespace calmora
