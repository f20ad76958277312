#pragma once

#include <chrono>
#include <cstdint>

namespace calmora {

/// Ratio that turns clock ticks into nanoseconds: ticks * numer / denom.
/// Both 0 where it cannot be read.
struct Timebase {
    std::uint32_t numer = 0;
    std::uint32_t denom = 0;
};

/// The machine's clocks.
class Clock {
  public:
    virtual ~Clock() = default;

    /// The wall clock: the user may set it, so it can jump in both directions.
    [[nodiscard]] virtual std::chrono::system_clock::time_point now() const = 0;

    /// A clock that only runs forward, in ticks from an arbitrary start.
    [[nodiscard]] virtual std::uint64_t ticks() const = 0;

    /// The ratio of ticks() to nanoseconds; constant for the life of the process.
    [[nodiscard]] virtual Timebase timebase() const = 0;

    /// Blocks the calling thread for at least `duration`.
    virtual void sleep(std::chrono::microseconds duration) = 0;
};

} // namespace calmora
