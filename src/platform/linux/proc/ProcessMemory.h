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

/// Remembers which process an id meant when it was shown to the user.
/// A held id keeps meaning that process: once it is gone the id is dead, whoever has it now, until
/// the id is held again. Main thread.
class ProcessMemory {
  public:
    /// `descriptorLimit` bounds the descriptors that are kept; a process held beyond it is
    /// remembered by its start time alone. Absent means a quarter of the soft limit of open files.
    explicit ProcessMemory(const ProcessReader& reader,
                           std::optional<std::size_t> descriptorLimit = {});

    /// Binds the id to the process that has it now, unless the process it is bound to still
    /// runs. False when there is no running process with this id.
    bool hold(ProcessId process);

    /// Whether the process that the id means is gone: the held one, else whichever has the id.
    /// A zombie is gone; a process whose main thread ended before the others is not.
    [[nodiscard]] bool isGone(ProcessId process) const;

    /// Start time of the held process in clock ticks since the machine started; absent when the
    /// id is not held. Stays after the end of the process.
    [[nodiscard]] std::optional<std::uint64_t> startTime(ProcessId process) const;

    /// The descriptor of the held process, for a poll or a signal; null when the id is not held,
    /// the process was found to be gone, or no descriptor was left. Whoever watches it shares it.
    [[nodiscard]] std::shared_ptr<const PidFd> descriptor(ProcessId process) const;

  private:
    struct Held {
        std::uint64_t startTime = 0;
        std::shared_ptr<const PidFd> descriptor;
        bool isGone = false;
    };

    /// Looks whether the process is gone; if so its descriptor is given up.
    bool hasEnded(ProcessId process, Held& held) const;
    void giveUpDescriptorsOfEnded() const;

    const ProcessReader& reader_;
    std::size_t descriptorLimit_;
    mutable std::size_t descriptors_ = 0;
    mutable std::unordered_map<ProcessId, Held> held_;
};

} // namespace calmora
