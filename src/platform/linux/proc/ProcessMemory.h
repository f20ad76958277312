// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/proc/PidFd.h"
#include "platform/linux/proc/ProcessReader.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>

namespace calmora {

/// Remembers which process an id meant when it was shown to the user. A held id stays bound to that
/// process, even if the id is reused, until it is held again. Main thread.
class ProcessMemory {
  public:
    /// Keeps at most `descriptorLimit` descriptors, by default a quarter of the soft limit of open
    /// files; further processes are known by start time alone.
    explicit ProcessMemory(const ProcessReader& reader,
                           std::optional<std::size_t> descriptorLimit = {});

    /// Binds the id to its current process, unless the process it is bound to still runs. False if
    /// no running process has this id.
    bool hold(ProcessId process);

    /// Whether the held process, or for an id not held its current process, is gone. A zombie is
    /// gone; a process whose main thread ended before the others is not.
    [[nodiscard]] bool isGone(ProcessId process) const;

    /// Start time of the held process in clock ticks since boot, even after its end; absent for an
    /// id not held.
    [[nodiscard]] std::optional<std::uint64_t> startTime(ProcessId process) const;

    /// The held process's descriptor for polling or signals. Null if the id is not held, the
    /// process was found gone, or no descriptor was left. Watchers share it.
    [[nodiscard]] std::shared_ptr<const PidFd> descriptor(ProcessId process) const;

  private:
    struct Held {
        std::uint64_t startTime = 0;
        std::shared_ptr<const PidFd> descriptor;
        bool isGone = false;
    };

    /// Checks whether the process is gone and then releases its descriptor.
    bool hasEnded(ProcessId process, Held& held) const;
    void giveUpDescriptorsOfEnded() const;

    const ProcessReader& reader_;
    std::size_t descriptorLimit_;
    mutable std::size_t descriptors_ = 0;
    mutable std::unordered_map<ProcessId, Held> held_;
};

} // namespace calmora
