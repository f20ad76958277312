#include "platform/linux/windows/CompositeWindowSystem.h"

#include <algorithm>

namespace calmora {
namespace {

/// The highest byte of a window id is its part.
constexpr int partShift = 56;

WindowId joinedId(std::size_t part, WindowId window) {
    return window == 0 ? 0 : WindowId{part} << partShift | window;
}

} // namespace

bool CompositeWindowSystem::isAlive() const {
    return std::ranges::any_of(parts_, &WindowSystem::isAlive);
}

std::string CompositeWindowSystem::displayName() const {
    for (const WindowSystem* part : parts_) {
        if (std::string name = part->displayName(); !name.empty()) {
            return name;
        }
    }
    return {};
}

const std::vector<TopLevelWindow>& CompositeWindowSystem::join(List list) {
    windows_.clear();
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        for (TopLevelWindow window : (parts_[i]->*list)()) {
            window.id = joinedId(i, window.id);
            window.transientFor = joinedId(i, window.transientFor);
            window.group = joinedId(i, window.group);
            windows_.push_back(std::move(window));
        }
    }
    return windows_;
}

const std::vector<TopLevelWindow>& CompositeWindowSystem::windows() {
    return join(&WindowSystem::windows);
}

const std::vector<TopLevelWindow>& CompositeWindowSystem::windowsReadAfresh() {
    return join(&WindowSystem::windowsReadAfresh);
}

bool CompositeWindowSystem::coversAllWindows() const {
    return std::ranges::any_of(parts_, [](const WindowSystem* part) {
        return part->isAlive() && part->coversAllWindows();
    });
}

std::optional<WindowId> CompositeWindowSystem::activeWindow() {
    std::optional<WindowId> unlisted;
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        const auto window = parts_[i]->activeWindow();
        if (!window) {
            continue;
        }
        const std::vector<TopLevelWindow>& listed = parts_[i]->windows();
        if (std::ranges::find(listed, *window, &TopLevelWindow::id) != listed.end()) {
            return joinedId(i, *window);
        }
        unlisted = unlisted.value_or(joinedId(i, *window));
    }
    return unlisted;
}

Subscription CompositeWindowSystem::listen(Listen kind, const std::function<void()>& handler) {
    auto all = std::make_shared<std::vector<Subscription>>();
    for (WindowSystem* part : parts_) {
        all->push_back((part->*kind)(handler));
    }
    return Subscription([all] { all->clear(); });
}

Subscription CompositeWindowSystem::onWindowsChanged(std::function<void()> handler) {
    return listen(&WindowSystem::onWindowsChanged, handler);
}

Subscription CompositeWindowSystem::onActiveWindowChanged(std::function<void()> handler) {
    return listen(&WindowSystem::onActiveWindowChanged, handler);
}

std::pair<WindowSystem*, WindowId> CompositeWindowSystem::find(WindowId window) const {
    const std::size_t part = window >> partShift;
    return {part < parts_.size() ? parts_[part] : nullptr,
            window & ((WindowId{1} << partShift) - 1)};
}

bool CompositeWindowSystem::requestClose(WindowId window, ProcessId process) {
    const auto [part, id] = find(window);
    return part && part->requestClose(id, process);
}

std::shared_ptr<const ImagePixels> CompositeWindowSystem::icon(WindowId window) {
    const auto [part, id] = find(window);
    return part ? part->icon(id) : nullptr;
}

std::vector<ProcessId>
CompositeWindowSystem::joinProcesses(std::vector<ProcessId> (WindowSystem::*list)()) {
    std::vector<ProcessId> all;
    for (WindowSystem* part : parts_) {
        const std::vector<ProcessId> own = (part->*list)();
        all.insert(all.end(), own.begin(), own.end());
    }
    return all;
}

std::vector<ProcessId> CompositeWindowSystem::displayProcesses() {
    return joinProcesses(&WindowSystem::displayProcesses);
}

std::vector<ProcessId> CompositeWindowSystem::trayIconProcesses() {
    return joinProcesses(&WindowSystem::trayIconProcesses);
}

void CompositeWindowSystem::flush() {
    std::ranges::for_each(parts_, &WindowSystem::flush);
}

} // namespace calmora
