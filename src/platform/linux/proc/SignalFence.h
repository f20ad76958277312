#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/proc/ProcessReader.h"

#include <functional>

namespace calmora {

/// Answers whether a process may be signalled at all, whoever asks.
using SignalGuard = std::function<bool(ProcessId)>;

/// Whether the process is one that may never be signalled: the first two ids, kernel threads,
/// processes of other users or with another user's rights, ourselves and all our ancestors, and
/// whatever cannot be read.
[[nodiscard]] bool isBehindBasicFence(const ProcessReader& reader, ProcessId process);

} // namespace calmora
