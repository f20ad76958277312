#include "platform/linux/proc/LinuxClock.h"

#include <algorithm>
#include <thread>

#include <ctime>

namespace calmora {

std::chrono::system_clock::time_point LinuxClock::now() const {
    return std::chrono::system_clock::now();
}

std::chrono::nanoseconds LinuxClock::ticks() const {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

void LinuxClock::sleep(std::chrono::microseconds duration) {
    std::this_thread::sleep_for(std::max(duration, std::chrono::microseconds::zero()));
}

} // namespace calmora
