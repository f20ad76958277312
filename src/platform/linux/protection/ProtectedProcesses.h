#pragma once

#include "platform/ProcessId.h"

namespace calmora {

/// The last fence before a signal: the processes that carry the user's session, and those that
/// belong to somebody else. They are no applications either.
class ProtectedProcesses {
  public:
    virtual ~ProtectedProcesses() = default;

    /// Whether the process must live, whoever asks. True also for a process that cannot be read:
    /// what is unknown is not touched.
    [[nodiscard]] virtual bool isProtected(ProcessId process) = 0;
};

} // namespace calmora
