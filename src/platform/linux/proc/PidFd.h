// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "support/FileDescriptor.h"

#include <cstddef>
#include <optional>
#include <utility>

namespace calmora {

/// A descriptor bound to one process, even after its id was reused. Source: pidfd_open(2),
/// pidfd_send_signal(2).
class PidFd {
  public:
    /// Opens the process that has this id now, including a zombie. Absent with errno set if there
    /// is none or no descriptor is left.
    [[nodiscard]] static std::optional<PidFd> open(ProcessId process);

    /// The descriptor for polling; readable once the whole process has ended.
    [[nodiscard]] int descriptor() const { return descriptor_.get(); }

    /// Whether all threads of the process have ended; true for a zombie.
    [[nodiscard]] bool hasExited() const;

    /// Sends a signal to this process only: 0, or -1 with errno set.
    [[nodiscard]] int send(int signal) const;

  private:
    explicit PidFd(FileDescriptor descriptor) : descriptor_(std::move(descriptor)) {}

    FileDescriptor descriptor_;
};

/// Raises the soft limit of open files to the hard one: one file is kept open for each listed
/// application, and the usual soft limit of 1024 only suits select(2).  Source: getrlimit(2).
void raiseOpenFileLimit();

/// The soft limit of open files.
[[nodiscard]] std::size_t openFileLimit();

} // namespace calmora
