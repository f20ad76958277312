// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <vector>

namespace calmora {

inline double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// CPU time of this thread in seconds: what others do on the machine does not count.
inline double cpuSeconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Times two things by turns, so that both meet the same disturbances: the medians of their CPU
/// time in microseconds and their ratio.
template <typename Ours, typename Floor>
void compare(benchmark::State& state, Ours ours, Floor floor) {
    std::vector<double> oursTook;
    std::vector<double> floorTook;
    ours();
    floor();
    for ([[maybe_unused]] auto round : state) {
        const double start = cpuSeconds();
        floor();
        const double between = cpuSeconds();
        ours();
        const double end = cpuSeconds();
        floorTook.push_back(between - start);
        oursTook.push_back(end - between);
        state.SetIterationTime(oursTook.back());
    }
    const double oursMedian = median(oursTook);
    const double floorMedian = median(floorTook);
    state.counters["us"] = oursMedian * 1e6;
    state.counters["floor_us"] = floorMedian * 1e6;
    state.counters["ratio"] = oursMedian / floorMedian;
}

} // namespace calmora
