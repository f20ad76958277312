// SPDX-License-Identifier: MIT
#pragma once

#include "support/Subscription.h"

#include <chrono>
#include <functional>

namespace calmora {

/// The main loop. Every action runs on the main thread, from the loop.
class RunLoop {
  public:
    virtual ~RunLoop() = default;

    /// Runs `action` every `interval`, first after one interval, until the token ends.
    /// Waits while an alert is open.
    [[nodiscard]] virtual Subscription repeat(std::chrono::milliseconds interval,
                                              std::function<void()> action) = 0;

    /// Runs `action` once after `delay` unless the token ends before.
    [[nodiscard]] virtual Subscription after(std::chrono::milliseconds delay,
                                             std::function<void()> action) = 0;

    /// Runs `action` once on the next turn of the loop unless the token ends before.
    [[nodiscard]] virtual Subscription nextTurn(std::function<void()> action) = 0;
};

} // namespace calmora
