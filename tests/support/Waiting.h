#pragma once

#include "platform/linux/EventPoll.h"

#include <chrono>
#include <functional>
#include <poll.h>
#include <thread>

namespace calmora {

/// Long enough for a loaded machine; what holds ends a wait at once.
constexpr std::chrono::seconds patience{15};

/// Looks at the condition every few milliseconds until it holds; false at the deadline.
inline bool waitFor(const std::function<bool()>& condition,
                    std::chrono::milliseconds timeout = patience) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

/// Runs `events` as a main loop does, asleep while nothing is due, until the condition holds;
/// false at the deadline. Counts in `turns` how often it woke up.
inline bool pumpUntil(EventPoll& events, const std::function<bool()>& condition,
                      std::chrono::milliseconds timeout = patience, int* turns = nullptr) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!condition()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            return false;
        }
        pollfd entry{events.descriptor(), POLLIN, 0};
        if (::poll(&entry, 1, static_cast<int>(left.count())) > 0) {
            events.dispatch();
            if (turns != nullptr) {
                ++*turns;
            }
        }
    }
    return true;
}

} // namespace calmora
