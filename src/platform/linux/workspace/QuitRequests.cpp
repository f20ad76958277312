// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/QuitRequests.h"

#include "platform/linux/windows/WindowRoles.h"

#include <algorithm>

namespace calmora {

std::optional<WindowId> QuitRequests::question(ProcessId process, std::uint64_t startTime,
                                               std::span<const TopLevelWindow> windows) const {
    const auto found = requests_.find(process);
    if (found == requests_.end() || found->second.startTime != startTime) {
        return {};
    }
    const auto& before = found->second.windows;
    const auto roles = windowRoles(windows);
    bool hasOldWindow = false;
    std::optional<WindowId> newDialog;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const TopLevelWindow& window = windows[i];
        // Another process may show the question for a window of this one.
        const auto parent =
            std::ranges::find(windows, topmostParent(windows, window.id), &TopLevelWindow::id);
        if (window.listedProcess() != process &&
            (parent == windows.end() || parent->listedProcess() != process)) {
            continue;
        }
        const bool isNew = !before.contains(window.id);
        // Its parent may have been hidden meanwhile.
        if (isNew && (roles[i].isTransient || before.contains(window.transientFor))) {
            return window.id;
        }
        if (isNew && window.type == WindowType::dialog) {
            newDialog = window.id;
        }
        hasOldWindow = hasOldWindow || !isNew;
    }
    // A dialog without a parent is a question only beside a window that was to close; alone it is
    // simply the next window.
    return hasOldWindow ? newDialog : std::nullopt;
}

void QuitRequests::forgetEnded(
    const std::function<bool(ProcessId, std::uint64_t startTime)>& hasEnded) {
    std::erase_if(requests_, [&](const auto& request) {
        return hasEnded(request.first, request.second.startTime);
    });
}

void QuitRequests::remember(ProcessId process, std::uint64_t startTime,
                            std::span<const TopLevelWindow> windows) {
    Request request{startTime, {}};
    for (const TopLevelWindow& window : windows) {
        request.windows.insert(window.id);
    }
    requests_[process] = std::move(request);
}

} // namespace calmora
