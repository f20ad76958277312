// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/ProcessTree.h"
#include "platform/Platform.h"
#include "platform/ProcessId.h"
#include "platform/Workspace.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace calmora {

/// Measures how much CPU an application and everything it has started use between two passes. Reads
/// nothing unless asked. Main thread.
class ProcessTreeSampler {
  public:
    /// An older sample is ignored: an average over hours says nothing about now.
    static constexpr std::chrono::minutes longestInterval{3};

    /// The platform's parts must outlive the sampler.
    explicit ProcessTreeSampler(Platform platform)
        : platform_(platform), tree_(platform.processes) {}

    /// Starts a pass over these running applications: forgets the process tree and the samples of
    /// all others.
    void beginPass(const std::vector<WorkspaceApplication>& running);

    /// Percent of one CPU that the process and its descendants have used since the last sample. A
    /// new process counts from its start, an ended one no longer. Absent for the first sample and
    /// if the last one is too old. Call once in a pass for each application.
    [[nodiscard]] std::optional<double> cpuPercent(ProcessId application);

    /// The processes of this pass.
    [[nodiscard]] ProcessTree& tree() { return tree_; }

  private:
    /// Nanoseconds of CPU time by process.
    using CpuTimes = std::unordered_map<ProcessId, std::uint64_t>;

    struct Sample {
        std::chrono::nanoseconds takenAt;
        CpuTimes cpuTimes;
    };

    [[nodiscard]] CpuTimes cpuTimesOf(ProcessId application);

    Platform platform_;
    std::unordered_map<ProcessId, Sample> samples_;
    /// That of this pass.
    ProcessTree tree_;
};

} // namespace calmora
