// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// A process that may own a window, from the kernel.
struct OwnerProcess {
    /// Its id in each of its pid namespaces, ours first.
    std::vector<ProcessId> ids;
    /// Clock ticks since boot.
    std::uint64_t startTime = 0;
    /// It runs as our own user.
    bool isOurs = false;
    /// The process name, cut at 15 bytes, and its program's file name.
    std::vector<std::string> names;
};

/// Looks up processes by id. Both results are absent if no running process has the id.
struct OwnerLookup {
    /// OwnerProcess::startTime alone, enough for most windows.
    std::function<std::optional<std::uint64_t>(ProcessId)> startTime;
    std::function<std::optional<OwnerProcess>(ProcessId)> process;
};

/// Reads /proc. Cost: about 4 µs for a start time, 15 µs for everything. Source: proc(5),
/// /proc/PID/stat, status (NSpid, Uid) and exe.
[[nodiscard]] OwnerLookup ownersFromKernel();

} // namespace calmora
