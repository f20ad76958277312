// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"
#include "platform/ProcessId.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

namespace calmora {

/// CPU that a process used between two samples, and its memory now.
struct ResourceUsage {
    /// Percent of one CPU; not capped, so several busy cores exceed 100. Never negative.
    double cpuPercent = 0;
    /// Mebibytes.
    double memoryMB = 0;
};

/// Turns the counters of successive samples into percentages. A percentage covers the time since
/// the same instance last sampled the same process; the first sample gives 0. Main thread.
class ResourceMonitor {
  public:
    /// The counters of a process's latest successful sample.
    struct Snapshot {
        /// Nanoseconds.
        std::uint64_t userTime = 0;
        /// Nanoseconds.
        std::uint64_t systemTime = 0;
        /// By the monotonic clock.
        std::chrono::nanoseconds wallTime{0};
        /// Bytes.
        std::uint64_t physFootprint = 0;
    };

    using Snapshots = std::unordered_map<ProcessId, Snapshot>;
    using Usages = std::unordered_map<ProcessId, ResourceUsage>;

    explicit ResourceMonitor(Platform platform) : platform_(platform) {}

    /// Samples one process. Absent if its counters cannot be read; its snapshot then stays.
    [[nodiscard]] std::optional<ResourceUsage> getUsage(ProcessId process);

    /// Samples processes in the given order; one entry for each whose counters could be read. The
    /// process table keeps open what it needs to sample the same processes again.
    [[nodiscard]] Usages getUsage(std::span<const ProcessId> processes);

    /// The snapshots, by process id. Entries stay after the process has gone until replaced.
    [[nodiscard]] const Snapshots& snapshots() const { return snapshots_; }

    /// Replaces the snapshots.
    void setSnapshots(Snapshots snapshots) { snapshots_ = std::move(snapshots); }

    /// Lets the process table close what it keeps open. The snapshots stay.
    void rest();

  private:
    Platform platform_;
    Snapshots snapshots_;
    /// The processes for which the table keeps something open.
    std::vector<ProcessId> retained_;
};

} // namespace calmora
