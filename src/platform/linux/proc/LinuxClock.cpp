#include "platform/linux/proc/LinuxClock.h"

#include <algorithm>
#include <thread>

#include <ctime>

namespace calmora {

std::chrono::system_clock::time_point LinuxClock::now() const {
    return std::chrono::system_clock::now();
}

std::uint64_t LinuxClock::ticks() const {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<std::uint64_t>(time.tv_sec) * 1'000'000'000U +
           static_cast<std::uint64_t>(time.tv_nsec);
}

Timebase LinuxClock::timebase() const {
    return {1, 1};
}

void LinuxClock::sleep(std::chrono::microseconds duration) {
    std::this_thread::sleep_for(std::max(duration, std::chrono::microseconds::zero()));
}

} // namespace calmora
