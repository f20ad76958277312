// SPDX-License-Identifier: MIT
#pragma once

#include "support/FileDescriptor.h"
#include "support/Subscription.h"

#include <chrono>
#include <functional>
#include <memory>

namespace calmora {

/// One descriptor for everything the Linux layer waits for: the window system, pidfds, timers. A
/// main loop watches descriptor() and calls dispatch() when it is readable. Main thread. Source:
/// epoll(7), timerfd_create(2).
class EventPoll {
  public:
    EventPoll();
    EventPoll(const EventPoll&) = delete;
    EventPoll& operator=(const EventPoll&) = delete;
    ~EventPoll();

    /// Calls `ready` from dispatch() whenever `descriptor` is readable or has hung up, until the
    /// token ends. The descriptor must outlive the token and may be watched only once. Returns an
    /// empty token if it cannot be watched.
    [[nodiscard]] Subscription watch(int descriptor, std::function<void()> ready);

    /// Calls `action` from dispatch() every `interval`, first after one interval, until the token
    /// ends. Missed turns are skipped.
    [[nodiscard]] Subscription every(std::chrono::milliseconds interval,
                                     std::function<void()> action);

    /// Calls `action` once from the next dispatch(), which becomes due at once, unless the token
    /// ends first.
    [[nodiscard]] Subscription later(std::function<void()> action);

    /// The descriptor to watch for reading; negative if the kernel could not create one.
    [[nodiscard]] int descriptor() const;

    /// Runs due callbacks and returns; never waits. Callbacks may add and end watches and may
    /// destroy this object.
    void dispatch();

  private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace calmora
