#pragma once

#include "platform/Platform.h"
#include "platform/ProcessId.h"
#include "platform/Workspace.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace calmora {

/// Measures how much CPU an application and everything it has started use between two passes.
/// Nothing is read in a pass in which nobody asks. Main thread.
class ProcessTreeSampler {
  public:
    /// A sample older than this is as good as none: an average over hours says nothing of now.
    static constexpr std::chrono::minutes longestInterval{3};

    /// No sample yet. What the platform refers to must outlive the sampler.
    explicit ProcessTreeSampler(Platform platform);

    /// Starts a pass while these applications run: which process has started which is read again
    /// when it is needed, and samples of applications that are gone are dropped.
    void beginPass(const std::vector<WorkspaceApplication>& running);

    /// Percent of one CPU that the process and its descendants have used since the last sample; a
    /// process that was not in it counts from its start, one that is gone no more. Absent at the
    /// first sample and where the last one is too old. Asked once a pass for each application.
    [[nodiscard]] std::optional<double> cpuPercent(ProcessId application);

  private:
    /// Nanoseconds of CPU time by process.
    using CpuTimes = std::unordered_map<ProcessId, std::uint64_t>;

    struct Sample {
        std::chrono::nanoseconds takenAt;
        CpuTimes cpuTimes;
    };

    [[nodiscard]] CpuTimes cpuTimesOf(ProcessId application);
    void readChildren();

    Platform platform_;
    std::unordered_map<ProcessId, Sample> samples_;
    /// The processes that each process has started; absent until this pass needs them.
    std::optional<std::unordered_map<ProcessId, std::vector<ProcessId>>> children_;
};

} // namespace calmora
