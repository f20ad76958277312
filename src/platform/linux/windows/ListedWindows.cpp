// SPDX-License-Identifier: MIT
#include "platform/linux/windows/ListedWindows.h"

#include "platform/linux/windows/WindowOwner.h"

#include <algorithm>
#include <utility>

namespace calmora {

ListedWindows::ListedWindows(std::function<void()> notifyLater,
                             const std::function<void(bool)>& onListeningChanged)
    : notifyLater_(std::move(notifyLater)), windowsChanged_(onListeningChanged),
      activeWindowChanged_(onListeningChanged) {}

const TopLevelWindow* ListedWindows::closable(WindowId window, ProcessId process) const {
    const auto found = std::ranges::find(windows_, window, &TopLevelWindow::id);
    const bool isTheirs = found != windows_.end() && found->process == process;
    return isTheirs && found->canBeAsked ? &*found : nullptr;
}

std::set<ProcessId> ListedWindows::owners() const {
    std::set<ProcessId> result;
    for (const TopLevelWindow& window : windows_) {
        if (window.process) {
            result.insert(*window.process);
        }
    }
    return result;
}

std::vector<ProcessId> ListedWindows::shellProcesses() const {
    std::vector<ProcessId> result;
    for (const TopLevelWindow& window : windows_) {
        const bool isShell = window.type == WindowType::dock || window.type == WindowType::desktop;
        if (window.process && isShell) {
            result.push_back(*window.process);
        }
    }
    return result;
}

void ListedWindows::replace(std::vector<TopLevelWindow> windows,
                            std::optional<WindowId> activeWindow) {
    const bool windowsDiffer = windows != windows_;
    const bool activeDiffers = activeWindow != activeWindow_;
    windows_ = std::move(windows);
    activeWindow_ = activeWindow;
    changed(windowsDiffer, activeDiffers);
}

void ListedWindows::changed(bool windowsDiffer, bool activeDiffers) {
    // New listeners are notified of later changes only.
    windowsDiffer_ = windowsDiffer_ || (windowsDiffer && windowsChanged_.hasListeners());
    activeDiffers_ = activeDiffers_ || (activeDiffers && activeWindowChanged_.hasListeners());
    if ((windowsDiffer_ || activeDiffers_) && !std::exchange(isNotifying_, true)) {
        notifyLater_();
    }
}

Subscription ListedWindows::onWindowsChanged(std::function<void()> handler) {
    return windowsChanged_.connect(std::move(handler));
}

Subscription ListedWindows::onActiveWindowChanged(std::function<void()> handler) {
    return activeWindowChanged_.connect(std::move(handler));
}

bool ListedWindows::hasListeners() const {
    return windowsChanged_.hasListeners() || activeWindowChanged_.hasListeners();
}

void ListedWindows::notify() {
    isNotifying_ = false;
    const bool activeDiffers = std::exchange(activeDiffers_, false);
    if (std::exchange(windowsDiffer_, false)) {
        windowsChanged_.emit();
    }
    if (activeDiffers) {
        activeWindowChanged_.emit();
    }
}

void setOwner(TopLevelWindow& window, ProcessId client, std::uint64_t firstSeen,
              const OwnerLookup& lookUp) {
    if (client > 0) {
        const auto owner = windowOwner({.client = client, .firstSeen = firstSeen}, {}, lookUp);
        window.process = owner.process;
        window.certainty = owner.certainty;
    }
}

} // namespace calmora
