#pragma once

#include "platform/Clock.h"

namespace calmora {

/// The machine's clocks: CLOCK_REALTIME, and CLOCK_MONOTONIC in nanoseconds (ratio 1/1).
class LinuxClock final : public Clock {
  public:
    [[nodiscard]] std::chrono::system_clock::time_point now() const override;
    [[nodiscard]] std::uint64_t ticks() const override;
    [[nodiscard]] Timebase timebase() const override;
    void sleep(std::chrono::microseconds duration) override;
};

} // namespace calmora
