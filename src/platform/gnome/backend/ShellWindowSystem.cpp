// SPDX-License-Identifier: MIT
#include "platform/gnome/backend/ShellWindowSystem.h"

#include "platform/gnome/backend/ShellLink.h"

#include <QTimer>

#include <utility>

namespace calmora {

ShellWindowSystem::ShellWindowSystem(ShellLink& link, StandIns standIns, OwnerLookup lookUp)
    : link_(link), standIns_(std::move(standIns)), lookUp_(std::move(lookUp)),
      listed_([this] { QTimer::singleShot(0, &context_, [this] { listed_.notify(); }); }) {
    changes_ = link_.onWindowsChanged([this] { update(); });
}

const std::vector<TopLevelWindow>& ShellWindowSystem::windows() {
    update();
    return listed_.windows();
}

const std::vector<TopLevelWindow>& ShellWindowSystem::windowsReadAfresh() {
    link_.readWindows();
    readWindows(told(/*isAfresh=*/true));
    return listed_.windows();
}

bool ShellWindowSystem::coversAllWindows() const {
    return link_.isAnswering();
}

std::optional<WindowId> ShellWindowSystem::activeWindow() {
    update();
    return listed_.activeWindow();
}

bool ShellWindowSystem::requestClose(WindowId window, ProcessId process) {
    // The shell compares nothing but its number, which it never uses twice.
    readWindows(told(/*isAfresh=*/false));
    const auto name = numbers_.name(window);
    return name && listed_.closable(window, process) != nullptr && link_.close(*name);
}

bool ShellWindowSystem::activate(WindowId window) {
    const auto name = numbers_.name(window);
    return name && link_.raise(*name);
}

std::vector<ProcessId> ShellWindowSystem::displayProcesses() {
    update();
    std::vector<ProcessId> result = listed_.shellProcesses();
    if (const auto shell = link_.process()) {
        result.push_back(*shell);
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
    numbers_.keep(told);
    told_ = told;
    toldFocus_ = link_.focus();
    std::vector<TopLevelWindow> windows;
    for (const ShellWindow& window : told_) {
        windows.push_back(windowOf(window));
    }
    const WindowId focus = numbers_.number(toldFocus_);
    listed_.replace(std::move(windows), focus == 0 ? std::nullopt : std::optional(focus));
    owners_.follow(listed_.owners());
}

TopLevelWindow ShellWindowSystem::windowOf(const ShellWindow& told) const {
    TopLevelWindow window = topLevelWindow(told);
    window.id = numbers_.number(told.id);
    window.transientFor = numbers_.number(told.parent);
    if (!told.isX11) {
        setOwner(window, told.process, numbers_.firstSeen(told.id), lookUp_);
    }
    return window;
}

std::unique_ptr<WindowSystem> makeShellWindows(ShellLink& link,
                                               ShellWindowSystem::StandIns standIns) {
    return qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
               ? nullptr
               : std::make_unique<ShellWindowSystem>(link, std::move(standIns));
}

} // namespace calmora
