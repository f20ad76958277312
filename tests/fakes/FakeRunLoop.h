// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeClock.h"
#include "platform/RunLoop.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace calmora {

/// A main loop driven by turn(); its timers follow the fake clock.
class FakeRunLoop final : public RunLoop {
  public:
    using milliseconds = std::chrono::milliseconds;
    using nanoseconds = std::chrono::nanoseconds;

    explicit FakeRunLoop(FakeClock& clock) : clock_(clock) {}

    Subscription repeat(milliseconds interval, std::function<void()> action) override {
        return add(interval, interval, std::move(action));
    }

    Subscription after(milliseconds delay, std::function<void()> action) override {
        return add(delay, {}, std::move(action));
    }

    Subscription nextTurn(std::function<void()> action) override {
        return add({}, {}, std::move(action));
    }

    /// One turn: runs actions for the next turn and due timers. A timer that is due several times
    /// runs once.
    void turn() {
        const nanoseconds now = time();
        for (const auto& [id, entry] : Entries(*entries_)) {
            if (entry.due > now || !entries_->contains(id)) {
                continue;
            }
            if (entry.interval > milliseconds(0)) {
                entries_->at(id).due = time() + entry.interval;
            } else {
                entries_->erase(id);
            }
            entry.action();
        }
    }

    /// Lets time pass with the loop running, from timer to timer.
    void advance(milliseconds duration) {
        const nanoseconds end = time() + duration;
        turn();
        while (time() < end) {
            nanoseconds next = end;
            for (const auto& [id, entry] : *entries_) {
                next = std::min(next, std::max(entry.due, time()));
            }
            clock_.advance(next - time());
            turn();
        }
    }

    /// The intervals of the repeating timers that run.
    std::vector<milliseconds> timers() const {
        std::vector<milliseconds> intervals;
        for (const auto& [id, entry] : *entries_) {
            if (entry.interval > milliseconds(0)) {
                intervals.push_back(entry.interval);
            }
        }
        return intervals;
    }

  private:
    struct Entry {
        nanoseconds due;
        milliseconds interval;
        std::function<void()> action;
    };

    using Entries = std::map<std::uint64_t, Entry>;

    nanoseconds time() const { return clock_.ticks(); }

    Subscription add(milliseconds delay, milliseconds interval, std::function<void()> action) {
        const std::uint64_t id = nextId_++;
        entries_->emplace(id, Entry{time() + delay, interval, std::move(action)});
        return Subscription([weak = std::weak_ptr(entries_), id] {
            if (const auto entries = weak.lock()) {
                entries->erase(id);
            }
        });
    }

    FakeClock& clock_;
    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
    std::uint64_t nextId_ = 0;
};

} // namespace calmora
