// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <chrono>
#include <functional>
#include <map>
#include <utility>

namespace calmora {

/// Time that passes only by advance() and sleep().
class FakeClock final : public Clock {
  public:
    std::chrono::system_clock::time_point now() const override { return wall; }

    std::chrono::nanoseconds ticks() const override { return passed_; }

    void sleep(std::chrono::microseconds duration) override {
        slept += duration;
        advance(duration);
    }

    /// Lets time pass and runs the due events.
    void advance(std::chrono::nanoseconds duration) {
        const std::chrono::nanoseconds end = passed_ + duration;
        while (!events_.empty() && events_.begin()->first <= end) {
            auto event = events_.extract(events_.begin());
            moveTo(event.key());
            event.mapped()();
        }
        moveTo(end);
    }

    /// Runs an event after a delay, also while the program sleeps.
    void after(std::chrono::nanoseconds delay, std::function<void()> event) {
        events_.emplace(passed_ + delay, std::move(event));
    }

    std::chrono::system_clock::time_point wall{std::chrono::hours(24 * 365 * 50)};
    /// Total time slept.
    std::chrono::microseconds slept{0};

  private:
    void moveTo(std::chrono::nanoseconds time) {
        wall += std::chrono::duration_cast<std::chrono::system_clock::duration>(time - passed_);
        passed_ = time;
    }

    std::chrono::nanoseconds passed_{0};
    std::multimap<std::chrono::nanoseconds, std::function<void()>> events_;
};

} // namespace calmora
