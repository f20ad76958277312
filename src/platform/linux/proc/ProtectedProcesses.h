#pragma once

#include "platform/ProcessId.h"

namespace calmora {

/// Decides which processes must live, whoever asks: those that carry the user's session, and those
/// that belong to somebody else. They are no applications either.
class ProtectedProcesses {
  public:
    virtual ~ProtectedProcesses() = default;

    /// Whether the process must live. True also for a process that cannot be read: what is unknown
    /// is not touched. What the session looks like may be of a moment before.
    [[nodiscard]] virtual bool isProtected(ProcessId process) = 0;

    /// isProtected() with everything read again: the final check before a signal or a request.
    [[nodiscard]] virtual bool isProtectedNow(ProcessId process) { return isProtected(process); }
};

} // namespace calmora
