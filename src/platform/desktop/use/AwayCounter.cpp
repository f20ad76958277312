// SPDX-License-Identifier: MIT
#include "platform/desktop/use/AwayCounter.h"

#include <ctime>

namespace calmora {
namespace {

/// What may pass between two reads of clocks; no machine sleeps for so short a time.
constexpr std::chrono::milliseconds betweenReads{100};

std::chrono::nanoseconds read(clockid_t clock) {
    timespec time{};
    ::clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

AwakeAndAsleep AwakeAndAsleep::now() {
    const auto awake = read(CLOCK_MONOTONIC);
    return {.awake = awake, .asleep = read(CLOCK_BOOTTIME) - awake};
}

void AwayCounter::setFollowing(bool follows, const AwakeAndAsleep& now) {
    settle(now);
    isFollowing_ = follows;
    isLocked_ = isLocked_ && follows;
}

void AwayCounter::setLocked(bool isLocked, const AwakeAndAsleep& now) {
    settle(now);
    isLocked_ = isLocked && isFollowing_;
}

std::chrono::nanoseconds AwayCounter::total(const AwakeAndAsleep& now) {
    settle(now);
    return sum_;
}

void AwayCounter::settle(const AwakeAndAsleep& now) {
    if (isFollowing_) {
        const auto asleep = now.asleep - since_.asleep;
        sum_ += asleep > betweenReads ? asleep : std::chrono::nanoseconds();
        sum_ += isLocked_ ? now.awake - since_.awake : std::chrono::nanoseconds();
    }
    since_ = now;
}

} // namespace calmora
