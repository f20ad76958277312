#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/proc/ProcessReader.h"

#include <functional>

namespace calmora {

/// Answers whether a process may be signalled at all, whoever asks.
using SignalGuard = std::function<bool(ProcessId)>;

/// Whether the process is one that may never be signalled: the first two ids, kernel threads,
/// processes of other users, ourselves and all our ancestors, and whatever cannot be read. Whose
/// process it is goes by the real user id, as for the kernel: what a user started with other
/// rights (a setuid program) is still theirs.  Source: kill(2).
[[nodiscard]] bool isBehindBasicFence(const ProcessReader& reader, ProcessId process);

} // namespace calmora
