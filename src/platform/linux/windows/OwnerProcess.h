#pragma once

#include "platform/ProcessId.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// What the kernel tells of a process that may own a window.
struct OwnerProcess {
    /// Its id in each pid namespace that it is in, ours first.
    std::vector<ProcessId> ids;
    /// Clock ticks since the machine started.
    std::uint64_t startTime = 0;
    /// It runs as our own user.
    bool isOurs = false;
    /// What its program is called: the name of the process, cut at 15 bytes, and that of its file.
    std::vector<std::string> names;
};

/// Looks a process up; absent when there is none with this id, or nothing of it runs any more.
using OwnerLookup = std::function<std::optional<OwnerProcess>(ProcessId)>;

/// A look-up that reads /proc. Cost: about 15 µs.
/// Source: proc(5), /proc/PID/stat, status (NSpid, Uid) and exe.
[[nodiscard]] OwnerLookup ownersFromKernel();

/// The present as start times of processes are counted: clock ticks since the machine started.
[[nodiscard]] std::uint64_t ticksNow();

} // namespace calmora
