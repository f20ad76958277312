#include "platform/linux/workspace/QuitRequests.h"

#include "platform/linux/windows/WindowRoles.h"

#include <algorithm>

namespace calmora {

bool QuitRequests::isAsking(ProcessId process, std::uint64_t startTime,
                            std::span<const TopLevelWindow> windows) const {
    const auto found = requests_.find(process);
    if (found == requests_.end() || found->second.startTime != startTime) {
        return false;
    }
    const auto roles = windowRoles(windows);
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const TopLevelWindow& window = windows[i];
        // The question may be another process's, for a window of this one.
        const auto parent = std::ranges::find(windows, topmostParent(windows, window.id),
                                              &TopLevelWindow::id);
        const bool isOfApplication =
            window.process == process || (parent != windows.end() && parent->process == process);
        const bool isQuestion = roles[i].isTransient || window.type == WindowType::dialog;
        if (isOfApplication && isQuestion && !found->second.windows.contains(window.id)) {
            return true;
        }
    }
    return false;
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
