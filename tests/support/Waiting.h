// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdlib>
#include <functional>
#include <poll.h>
#include <thread>

namespace calmora {

/// A time limit in a test, multiplied by the environment variable CALMORA_TEST_TIMEOUT_SCALE, which
/// slow machines set.
inline std::chrono::milliseconds scaled(std::chrono::milliseconds time) {
    const char* scale = std::getenv("CALMORA_TEST_TIMEOUT_SCALE");
    const double factor = scale != nullptr ? std::atof(scale) : 1.0;
    return factor > 0 ? std::chrono::duration_cast<std::chrono::milliseconds>(time * factor) : time;
}

/// Long enough for a loaded machine; a condition that holds ends a wait at once.
constexpr std::chrono::seconds defaultTimeout{15};

/// Looks at the condition every few milliseconds until it holds; false after `timeout`, scaled.
inline bool waitFor(const std::function<bool()>& condition,
                    std::chrono::milliseconds timeout = defaultTimeout) {
    const auto deadline = std::chrono::steady_clock::now() + scaled(timeout);
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

/// Runs an EventPoll as a main loop does, asleep while nothing is due, until the condition holds;
/// false after `timeout`, scaled. Counts in `turns` how often it woke up.
template <typename Events>
bool pumpUntil(Events& events, const std::function<bool()>& condition,
               std::chrono::milliseconds timeout = defaultTimeout, int* turns = nullptr) {
    const auto deadline = std::chrono::steady_clock::now() + scaled(timeout);
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

/// Runs an EventPoll for a while, to see that nothing happens; how often it woke up.
template <typename Events>
int pumpFor(Events& events, std::chrono::milliseconds time) {
    int turns = 0;
    pumpUntil(events, [] { return false; }, time, &turns);
    return turns;
}

/// Runs an EventPoll until what other programs have caused has arrived: until nothing has come for
/// `quiet`. False when it goes on coming.
template <typename Events>
bool pumpUntilQuiet(Events& events,
                    std::chrono::milliseconds quiet = std::chrono::milliseconds(100)) {
    for (int attempt = 0; attempt < 50; ++attempt) {
        if (pumpFor(events, quiet) == 0) {
            return true;
        }
    }
    return false;
}

} // namespace calmora
