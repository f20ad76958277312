// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <thread>

namespace calmora {

/// CLOCK_REALTIME and CLOCK_MONOTONIC.
class LinuxClock final : public Clock {
  public:
    [[nodiscard]] std::chrono::system_clock::time_point now() const override {
        return std::chrono::system_clock::now();
    }

    [[nodiscard]] std::chrono::nanoseconds ticks() const override {
        return std::chrono::steady_clock::now().time_since_epoch();
    }

    void sleep(std::chrono::microseconds duration) override {
        std::this_thread::sleep_for(duration);
    }
};

} // namespace calmora
