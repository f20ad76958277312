// SPDX-License-Identifier: MIT
#include "platform/linux/windows/WindowRoles.h"

#include <algorithm>
#include <set>
#include <unordered_set>

namespace calmora {

namespace {

bool isApplicationType(WindowType type) {
    return type == WindowType::none || type == WindowType::normal || type == WindowType::dialog ||
           type == WindowType::utility;
}

bool namesParent(const TopLevelWindow& window) {
    return window.transientFor != 0 && window.transientFor != window.id;
}

} // namespace

std::vector<WindowRole> windowRoles(std::span<const TopLevelWindow> windows) {
    std::unordered_set<WindowId> known;
    std::set<ProcessId> withPlainWindow;
    for (const TopLevelWindow& window : windows) {
        known.insert(window.id);
        const auto process = window.listedProcess();
        if (process && !namesParent(window) && !window.isModal && isApplicationType(window.type)) {
            withPlainWindow.insert(*process);
        }
    }
    std::vector<WindowRole> roles;
    roles.reserve(windows.size());
    for (const TopLevelWindow& window : windows) {
        WindowRole role;
        const auto process = window.listedProcess();
        const bool hasPlainSibling = process && withPlainWindow.contains(*process);
        role.isTransient =
            (namesParent(window) && (known.contains(window.transientFor) || hasPlainSibling)) ||
            (window.isModal && hasPlainSibling);
        role.isShell = window.type == WindowType::dock || window.type == WindowType::desktop;
        const bool isPlain = isApplicationType(window.type) && !role.isTransient;
        // Some toolkits keep modal dialogs out of task bars, even an only one.
        const bool isHidden = window.skipsTaskbar && !window.isModal;
        role.isRegular = isPlain && !isHidden;
        role.isHidden = isPlain && isHidden;
        role.mayBeAsked = isPlain && window.canBeAsked;
        roles.push_back(role);
    }
    return roles;
}

bool hasRegularWindow(std::span<const TopLevelWindow> windows, ProcessId process) {
    const auto roles = windowRoles(windows);
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (roles[i].isRegular && (windows[i].process == process ||
                                   std::ranges::binary_search(windows[i].candidates, process))) {
            return true;
        }
    }
    return false;
}

bool isOneOfSeveralOwners(std::span<const TopLevelWindow> windows, ProcessId process) {
    return std::ranges::any_of(windows, [process](const TopLevelWindow& window) {
        return std::ranges::binary_search(window.candidates, process);
    });
}

std::optional<WindowId> modalDialog(std::span<const TopLevelWindow> windows, ProcessId process) {
    const auto roles = windowRoles(windows);
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (windows[i].isModal && roles[i].isTransient && windows[i].process == process) {
            return windows[i].id;
        }
    }
    return {};
}

WindowId topmostParent(std::span<const TopLevelWindow> windows, WindowId window) {
    // Bounded: clients may name each other as parents.
    for (std::size_t step = 0; step < 16; ++step) {
        const auto found = std::ranges::find(windows, window, &TopLevelWindow::id);
        if (found == windows.end() || !namesParent(*found) ||
            std::ranges::find(windows, found->transientFor, &TopLevelWindow::id) == windows.end()) {
            break;
        }
        window = found->transientFor;
    }
    return window;
}

} // namespace calmora
