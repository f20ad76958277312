// SPDX-License-Identifier: MIT
#include "model/ResourceMonitor.h"

#include "platform/Clock.h"
#include "platform/ProcessTable.h"

#include <algorithm>

namespace calmora {
namespace {

double percent(const ResourceMonitor::Snapshot& before, const ResourceMonitor::Snapshot& now) {
    // A counter that ran backwards belongs to another process with the same id.
    if (now.userTime < before.userTime || now.systemTime < before.systemTime ||
        now.wallTime <= before.wallTime) {
        return 0;
    }
    const std::uint64_t busy =
        (now.userTime - before.userTime) + (now.systemTime - before.systemTime);
    const std::chrono::nanoseconds elapsed = now.wallTime - before.wallTime;
    return static_cast<double>(busy) / static_cast<double>(elapsed.count()) * 100;
}

} // namespace

std::optional<ResourceUsage> ResourceMonitor::getUsage(ProcessId process) {
    const std::optional<ProcessCounters> counters = platform_.processes.counters(process);
    if (!counters) {
        return std::nullopt;
    }
    const Snapshot now{counters->userTime, counters->systemTime, platform_.clock.ticks(),
                       counters->physFootprint};
    ResourceUsage usage;
    const auto [entry, isFirst] = snapshots_.try_emplace(process, now);
    if (!isFirst) {
        usage.cpuPercent = percent(entry->second, now);
        entry->second = now;
    }
    usage.memoryMB = static_cast<double>(now.physFootprint) / 1024 / 1024;
    return usage;
}

ResourceMonitor::Usages ResourceMonitor::getUsage(std::span<const ProcessId> processes) {
    if (!std::ranges::equal(processes, retained_)) {
        retained_.assign(processes.begin(), processes.end());
        platform_.processes.retainCounters(retained_);
    }
    Usages usages;
    usages.reserve(processes.size());
    for (const ProcessId process : processes) {
        if (const auto usage = getUsage(process)) {
            usages[process] = *usage;
        }
    }
    return usages;
}

void ResourceMonitor::rest() {
    retained_.clear();
    platform_.processes.retainCounters({});
}

} // namespace calmora
