#pragma once

#include "fakes/FakeClock.h"
#include "platform/RunLoop.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace calmora {

/// A main loop that is turned by hand; its timers follow the fake clock.
class FakeRunLoop final : public RunLoop {
  public:
    explicit FakeRunLoop(FakeClock& clock) : clock_(clock) {}

    [[nodiscard]] Subscription repeat(std::chrono::milliseconds interval,
                                      std::function<void()> action) override;
    [[nodiscard]] Subscription after(std::chrono::milliseconds delay,
                                     std::function<void()> action) override;
    [[nodiscard]] Subscription nextTurn(std::function<void()> action) override;

    /// One turn: what waits for the next turn and the timers that are due now. A timer that was
    /// missed several times runs once.
    void turn();

    /// Lets time pass with the loop running, from timer to timer.
    void advance(std::chrono::milliseconds duration);

    /// The intervals of the repeating timers that run.
    [[nodiscard]] std::vector<std::chrono::milliseconds> timers() const;

  private:
    struct Entry {
        std::chrono::nanoseconds due;
        std::chrono::milliseconds interval;
        std::function<void()> action;
    };

    using Entries = std::map<std::uint64_t, Entry>;

    [[nodiscard]] std::chrono::nanoseconds time() const;
    [[nodiscard]] Subscription add(std::chrono::milliseconds delay,
                                   std::chrono::milliseconds interval,
                                   std::function<void()> action);

    FakeClock& clock_;
    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
    std::uint64_t nextId_ = 0;
};

} // namespace calmora
