// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace calmora {

/// The machine's clocks.
class Clock {
  public:
    virtual ~Clock() = default;

    /// The wall clock: the user may set it, so it can jump in both directions.
    [[nodiscard]] virtual std::chrono::system_clock::time_point now() const = 0;

    /// Monotonic time since an arbitrary start.
    [[nodiscard]] virtual std::chrono::nanoseconds ticks() const = 0;

    /// Blocks the calling thread for at least `duration`.
    virtual void sleep(std::chrono::microseconds duration) = 0;
};

} // namespace calmora
