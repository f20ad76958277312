// SPDX-License-Identifier: MIT
// What tests ask of a window system about the windows of a process.
#pragma once

#include "platform/linux/windows/WindowSystem.h"

#include <algorithm>

namespace calmora {

/// The first window of a process; one with the id 0 when it has none.
inline TopLevelWindow windowOf(WindowSystem& windows, ProcessId process) {
    const auto& all = windows.windows();
    const auto found = std::ranges::find(all, std::optional(process), &TopLevelWindow::process);
    return found == all.end() ? TopLevelWindow{} : *found;
}

inline bool isActive(WindowSystem& windows, ProcessId process) {
    const WindowId window = windowOf(windows, process).id;
    return window != 0 && windows.activeWindow() == window;
}

/// Of all windows; 0 for an unknown one.
inline std::vector<ProcessId> ownersOf(WindowSystem& windows) {
    std::vector<ProcessId> result;
    for (const TopLevelWindow& window : windows.windows()) {
        result.push_back(window.process.value_or(0));
    }
    return result;
}

inline bool close(WindowSystem& windows, ProcessId process) {
    const bool asked = windows.requestClose(windowOf(windows, process).id, process);
    windows.flush();
    return asked;
}

} // namespace calmora
