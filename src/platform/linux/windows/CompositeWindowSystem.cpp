// SPDX-License-Identifier: MIT
#include "platform/linux/windows/CompositeWindowSystem.h"

#include <algorithm>

namespace calmora {
namespace {

/// The highest byte of a window id is its part.
constexpr int partShift = 56;

WindowId joinedId(std::size_t part, WindowId window) {
    return window == 0 ? 0 : WindowId{part} << partShift | window;
}

bool covers(const WindowSystem* part) {
    return part->isAlive() && part->coversAllWindows();
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
    X11Windows x11Windows;
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        const bool isX11 = !parts_[i]->displayName().empty();
        for (TopLevelWindow window : (parts_[i]->*list)()) {
            if (isX11) {
                x11Windows.ids.emplace(static_cast<std::uint32_t>(window.id),
                                       joinedId(i, window.id));
                x11Windows.classes.insert({window.instance, window.className});
            }
            window.id = joinedId(i, window.id);
            window.transientFor = joinedId(i, window.transientFor);
            window.group = joinedId(i, window.group);
            windows_.push_back(std::move(window));
        }
    }
    dropDoubles(x11Windows);
    return windows_;
}

void CompositeWindowSystem::dropDoubles(const X11Windows& x11Windows) {
    doubles_.clear();
    hasUnknownOwners_ = false;
    for (TopLevelWindow& window : windows_) {
        const auto known = window.x11Id ? x11Windows.ids.find(*window.x11Id) : x11Windows.ids.end();
        const bool hasOwner = window.listedProcess().has_value();
        const bool isClassOfX11 =
            window.mayBeX11 && x11Windows.classes.contains(window.applicationId);
        if (known != x11Windows.ids.end()) {
            doubles_.emplace(window.id, known->second);
            // Only the compositor knows which workspaces are shown.
            const auto twin = std::ranges::find(windows_, known->second, &TopLevelWindow::id);
            twin->isFullScreen = window.isFullScreen;
        } else if (isClassOfX11 && !hasOwner) {
            doubles_.emplace(window.id, 0);
        } else if (!hasOwner && (window.x11Id || window.mayBeX11)) {
            hasUnknownOwners_ = true;
        }
        window.canBeAsked = window.canBeAsked && !isClassOfX11;
    }
    std::erase_if(windows_,
                  [this](const TopLevelWindow& window) { return doubles_.contains(window.id); });
}

const std::vector<TopLevelWindow>& CompositeWindowSystem::windows() {
    return join(&WindowSystem::windows);
}

const std::vector<TopLevelWindow>& CompositeWindowSystem::windowsReadAfresh() {
    return join(&WindowSystem::windowsReadAfresh);
}

bool CompositeWindowSystem::coversAllWindows() const {
    return !hasUnknownOwners_ && std::ranges::any_of(parts_, covers);
}

std::optional<WindowId> CompositeWindowSystem::activeWindow() {
    static_cast<void>(windows());
    bool someCover = std::ranges::any_of(parts_, covers);
    std::optional<WindowId> unlisted;
    // Compositors first: one may say that the X server knows.
    std::vector<std::size_t> order;
    for (const bool isCompositor : {true, false}) {
        for (std::size_t i = 0; i < parts_.size(); ++i) {
            if (covers(parts_[i]) == isCompositor) {
                order.push_back(i);
            }
        }
    }
    for (const std::size_t i : order) {
        const auto active =
            someCover && !covers(parts_[i]) ? std::nullopt : parts_[i]->activeWindow();
        if (!active) {
            continue;
        }
        const auto twin = doubles_.find(joinedId(i, *active));
        const WindowId window = twin == doubles_.end() ? joinedId(i, *active) : twin->second;
        if (std::ranges::find(windows_, window, &TopLevelWindow::id) != windows_.end()) {
            return window;
        }
        if (window == 0) {
            someCover = false;
        } else {
            unlisted = unlisted.value_or(window);
        }
    }
    return unlisted;
}

std::optional<std::chrono::milliseconds> CompositeWindowSystem::sinceInput() {
    for (WindowSystem* part : parts_) {
        if (const auto time = part->sinceInput()) {
            return time;
        }
    }
    return std::nullopt;
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

bool CompositeWindowSystem::activate(WindowId window) {
    for (const auto& [twin, listed] : doubles_) {
        const auto [part, id] = find(twin);
        if (listed == window && part && part->activate(id)) {
            return true;
        }
    }
    const auto [part, id] = find(window);
    return part && part->activate(id);
}

void CompositeWindowSystem::ping(WindowId window) {
    if (const auto [part, id] = find(window); part) {
        part->ping(id);
    }
}

bool CompositeWindowSystem::owesAnswer(WindowId window) {
    const auto [part, id] = find(window);
    return part && part->owesAnswer(id);
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
