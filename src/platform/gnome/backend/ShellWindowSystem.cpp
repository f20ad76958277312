// SPDX-License-Identifier: MIT
#include "platform/gnome/backend/ShellWindowSystem.h"

#include "platform/gnome/backend/ShellLink.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/windows/WindowOwner.h"

#include <algorithm>
#include <set>
#include <utility>

namespace calmora {

ShellWindowSystem::ShellWindowSystem(ShellLink& link, StandIns standIns, OwnerLookup lookUp)
    : link_(link), standIns_(std::move(standIns)), lookUp_(std::move(lookUp)) {
    notifying_.setSingleShot(true);
    QObject::connect(&notifying_, &QTimer::timeout, &notifying_, [this] { notify(); });
    changes_ = link_.onWindowsChanged([this] { update(); });
}

Subscription ShellWindowSystem::onWindowsChanged(std::function<void()> handler) {
    return windowsChanged_.connect(std::move(handler));
}

Subscription ShellWindowSystem::onActiveWindowChanged(std::function<void()> handler) {
    return activeWindowChanged_.connect(std::move(handler));
}

const std::vector<TopLevelWindow>& ShellWindowSystem::windows() {
    update();
    return windows_;
}

const std::vector<TopLevelWindow>& ShellWindowSystem::windowsReadAfresh() {
    link_.readWindows();
    readWindows(told(/*isAfresh=*/true));
    return windows_;
}

bool ShellWindowSystem::coversAllWindows() const {
    return link_.isAnswering();
}

std::optional<WindowId> ShellWindowSystem::activeWindow() {
    update();
    return active_;
}

bool ShellWindowSystem::requestClose(WindowId window, ProcessId process) {
    // The shell compares nothing but its number, which it never uses twice.
    readWindows(told(/*isAfresh=*/false));
    const auto found = std::ranges::find(windows_, window, &TopLevelWindow::id);
    if (found == windows_.end() || !found->canBeAsked || found->process != process) {
        return false;
    }
    const auto index = static_cast<std::size_t>(found - windows_.begin());
    return link_.close(told_[index].id);
}

bool ShellWindowSystem::activate(WindowId window) {
    const auto known =
        std::ranges::find(known_, window, [](const auto& entry) { return entry.second.number; });
    return known != known_.end() && link_.raise(known->first);
}

std::vector<ProcessId> ShellWindowSystem::displayProcesses() {
    update();
    std::vector<ProcessId> result;
    if (const auto shell = link_.process()) {
        result.push_back(*shell);
    }
    for (const TopLevelWindow& window : windows_) {
        if (window.process &&
            (window.type == WindowType::dock || window.type == WindowType::desktop)) {
            result.push_back(*window.process);
        }
    }
    return result;
}

std::vector<ShellWindow> ShellWindowSystem::told(bool isAfresh) {
    const bool isAway = link_.state() == ShellLink::State::absent;
    return isAway && standIns_ ? standIns_(isAfresh) : link_.windows();
}

void ShellWindowSystem::update() {
    const std::vector<ShellWindow> now = told(/*isAfresh=*/false);
    if (!owners_.takeEnded().empty() || now != told_ || link_.focus() != toldFocus_) {
        readWindows(now);
    }
}

void ShellWindowSystem::readWindows(const std::vector<ShellWindow>& told) {
    auto known = std::exchange(known_, {});
    for (const ShellWindow& window : told) {
        const auto old = known.find(window.id);
        known_[window.id] = old == known.end() ? Known{++lastNumber_, ticksNow()} : old->second;
    }
    told_ = told;
    toldFocus_ = link_.focus();
    const auto before = std::exchange(windows_, {});
    const auto activeBefore = std::exchange(active_, std::nullopt);
    std::set<ProcessId> owners;
    for (const ShellWindow& window : told_) {
        windows_.push_back(windowOf(window));
        if (windows_.back().process) {
            owners.insert(*windows_.back().process);
        }
    }
    if (const auto focus = known_.find(toldFocus_); focus != known_.end()) {
        active_ = focus->second.number;
    }
    owners_.follow(owners);
    windowsDiffer_ = windowsDiffer_ || before != windows_;
    activeDiffers_ = activeDiffers_ || activeBefore != active_;
    if (windowsDiffer_ || activeDiffers_) {
        notifying_.start(0);
    }
}

TopLevelWindow ShellWindowSystem::windowOf(const ShellWindow& told) const {
    TopLevelWindow window = topLevelWindow(told);
    const Known& known = known_.at(told.id);
    window.id = known.number;
    if (const auto parent = known_.find(told.parent); parent != known_.end()) {
        window.transientFor = parent->second.number;
    }
    if (!told.isX11 && told.process > 0) {
        const auto owner =
            windowOwner({.client = told.process, .firstSeen = known.firstSeen}, {}, lookUp_);
        window.process = owner.process;
        window.certainty = owner.certainty;
    }
    return window;
}

/// Nobody is notified from within a call of theirs.
void ShellWindowSystem::notify() {
    const bool windowsDiffer = std::exchange(windowsDiffer_, false);
    const bool activeDiffers = std::exchange(activeDiffers_, false);
    if (windowsDiffer) {
        windowsChanged_.emit();
    }
    if (activeDiffers) {
        activeWindowChanged_.emit();
    }
}

std::unique_ptr<WindowSystem> makeShellWindows(ShellLink& link,
                                               ShellWindowSystem::StandIns standIns) {
    return qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
               ? nullptr
               : std::make_unique<ShellWindowSystem>(link, std::move(standIns));
}

} // namespace calmora
