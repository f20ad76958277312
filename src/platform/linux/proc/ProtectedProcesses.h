// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"

namespace calmora {

/// Decides which processes must never be signalled nor listed: those that carry the user's session,
/// and other users' processes.
class ProtectedProcesses {
  public:
    virtual ~ProtectedProcesses() = default;

    /// Whether the process is protected; also true if it cannot be read. May use session facts from
    /// a moment ago.
    [[nodiscard]] virtual bool isProtected(ProcessId process) = 0;

    /// isProtected() with everything read again: final check before a signal or a request.
    [[nodiscard]] virtual bool isProtectedNow(ProcessId process) { return isProtected(process); }
};

} // namespace calmora
