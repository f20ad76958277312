// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace calmora {

/// Two clocks of the machine at one moment.
struct AwakeAndAsleep {
    /// Since an arbitrary start, without the time asleep (CLOCK_MONOTONIC).
    std::chrono::nanoseconds awake{};
    /// How long the machine has slept since it started (CLOCK_BOOTTIME less CLOCK_MONOTONIC).
    std::chrono::nanoseconds asleep{};

    [[nodiscard]] static AwakeAndAsleep now();
};

/// Adds up the time asleep and the time locked while awake, as far as the session is followed.
class AwayCounter {
  public:
    void setFollowing(bool follows, const AwakeAndAsleep& now);
    /// Counts once whatever its number of changes; forgotten when following ends.
    void setLocked(bool isLocked, const AwakeAndAsleep& now);
    /// Never less than before.
    [[nodiscard]] std::chrono::nanoseconds total(const AwakeAndAsleep& now);

  private:
    /// Moves what has passed until now into the sum.
    void settle(const AwakeAndAsleep& now);

    bool isFollowing_ = false;
    bool isLocked_ = false;
    AwakeAndAsleep since_;
    std::chrono::nanoseconds sum_{};
};

} // namespace calmora
