#pragma once

#include "platform/linux/proc/ProcessDetails.h"
#include "platform/linux/windows/WindowSystem.h"

#include <optional>
#include <vector>

namespace calmora {

/// Everything that identifies a process's application.
struct ApplicationFacts {
    ProcessDetails process = {};
    /// Absent if gone or unreadable.
    std::optional<ProcessDetails> parent = {};
    /// The windows of the process, oldest first, transient ones included.
    std::vector<TopLevelWindow> windows = {};
    /// Windows of other processes in the same window groups, oldest first.
    std::vector<TopLevelWindow> groupWindows = {};
};

} // namespace calmora
