#pragma once

#include "platform/ProcessId.h"
#include "support/FileDescriptor.h"

#include <optional>
#include <utility>

namespace calmora {

/// A descriptor that means one process, also after its id passed to another one.
/// Source: pidfd_open(2), pidfd_send_signal(2).
class PidFd {
  public:
    /// The process that has this id now, a zombie included; absent when there is none, or no
    /// descriptor is left (errno tells).
    [[nodiscard]] static std::optional<PidFd> open(ProcessId process);

    /// The descriptor, for a poll: it is readable once the whole process has ended.
    [[nodiscard]] int descriptor() const { return descriptor_.get(); }

    /// Whether every thread of the process has ended; true for a zombie as well.
    [[nodiscard]] bool hasExited() const;

    /// Sends a signal to exactly this process: 0, or -1 with errno set.
    [[nodiscard]] int send(int signal) const;

  private:
    explicit PidFd(FileDescriptor descriptor) : descriptor_(std::move(descriptor)) {}

    FileDescriptor descriptor_;
};

} // namespace calmora
