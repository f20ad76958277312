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
/// process, even if the id is reused, until it is held again; of the ended ones, that is true for
/// at least the last 2048. Main thread.
class ProcessMemory {
  public:
    /// How many ended processes are remembered at least.
    static constexpr std::size_t mostEnded = 2048;

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
        /// Counts the ends in the order in which they were found; 0 while it runs.
        std::uint64_t end = 0;
    };

    /// Checks whether the process is gone and then releases its descriptor.
    bool hasEnded(ProcessId process, Held& held) const;
    void findEnded() const;
    void forgetFirstEnded();

    const ProcessReader& reader_;
    std::size_t descriptorLimit_;
    mutable std::size_t descriptors_ = 0;
    mutable std::uint64_t ends_ = 0;
    /// The number of processes at which ended ones are looked for and forgotten.
    std::size_t fullAt_ = 2 * mostEnded;
    mutable std::unordered_map<ProcessId, Held> held_;
};

} // namespace calmora
