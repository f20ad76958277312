#include "support/Waiting.h"

#include <algorithm>
#include <poll.h>
#include <thread>

namespace calmora {

using Clock = std::chrono::steady_clock;

bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds timeout) {
    const auto deadline = Clock::now() + timeout;
    while (!condition()) {
        if (Clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

bool pumpUntil(EventPoll& events, const std::function<bool()>& condition,
               std::chrono::milliseconds timeout, int* turns) {
    const auto deadline = Clock::now() + timeout;
    while (!condition()) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0) {
            return false;
        }
        pollfd entry{events.descriptor(), POLLIN, 0};
        if (::poll(&entry, 1, static_cast<int>(left)) > 0) {
            events.dispatch();
            if (turns != nullptr) {
                ++*turns;
            }
        }
    }
    return true;
}

} // namespace calmora
