#pragma once

#include "platform/Clock.h"

namespace calmora {

/// CLOCK_REALTIME and CLOCK_MONOTONIC.
class LinuxClock final : public Clock {
  public:
    [[nodiscard]] std::chrono::system_clock::time_point now() const override;
    [[nodiscard]] std::chrono::nanoseconds ticks() const override;
    void sleep(std::chrono::microseconds duration) override;
};

} // namespace calmora
