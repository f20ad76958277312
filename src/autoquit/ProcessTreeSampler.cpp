// SPDX-License-Identifier: MIT
#include "autoquit/ProcessTreeSampler.h"

#include "platform/Clock.h"
#include "platform/ProcessTable.h"

#include <algorithm>
#include <utility>

namespace calmora {

void ProcessTreeSampler::beginPass(const std::vector<WorkspaceApplication>& running) {
    tree_.reset();
    std::erase_if(samples_,
                  [&running](const auto& sample) { return !isListed(running, sample.first); });
}

std::optional<double> ProcessTreeSampler::cpuPercent(ProcessId application) {
    Sample now{platform_.clock.ticks(), cpuTimesOf(application)};
    const auto [entry, isFirst] = samples_.try_emplace(application);
    const Sample before = std::exchange(entry->second, std::move(now));
    if (isFirst) {
        return std::nullopt;
    }
    const std::chrono::nanoseconds elapsed = entry->second.takenAt - before.takenAt;
    if (elapsed.count() <= 0 || elapsed > longestInterval) {
        return std::nullopt;
    }
    std::uint64_t busy = 0;
    for (const auto& [process, cpuTime] : entry->second.cpuTimes) {
        const auto earlier = before.cpuTimes.find(process);
        // A smaller value belongs to another process with the same id.
        const bool isKnown = earlier != before.cpuTimes.end() && earlier->second <= cpuTime;
        busy += isKnown ? cpuTime - earlier->second : cpuTime;
    }
    return static_cast<double>(busy) / static_cast<double>(elapsed.count()) * 100;
}

ProcessTreeSampler::CpuTimes ProcessTreeSampler::cpuTimesOf(ProcessId application) {
    CpuTimes times;
    for (const ProcessId process : tree_.withDescendants(application)) {
        const auto counters = platform_.processes.counters(process);
        times.emplace(process, counters ? counters->userTime + counters->systemTime : 0);
    }
    return times;
}

} // namespace calmora
