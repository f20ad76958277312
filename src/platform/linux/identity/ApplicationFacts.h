#pragma once

#include "platform/linux/proc/ProcessDetails.h"
#include "platform/linux/windows/WindowSystem.h"

#include <optional>
#include <vector>

namespace calmora {

/// Everything that tells which application a process is.
struct ApplicationFacts {
    ProcessDetails process = {};
    /// Absent where it is gone or may not be read.
    std::optional<ProcessDetails> parent = {};
    /// The windows of the process, oldest first, transient ones included.
    std::vector<TopLevelWindow> windows = {};
    /// Windows of other processes in the window groups of these, oldest first.
    std::vector<TopLevelWindow> groupWindows = {};
};

} // namespace calmora
