// SPDX-License-Identifier: MIT
#include "autoquit/ActivityTracker.h"

#include "platform/Clock.h"
#include "platform/Workspace.h"

namespace calmora {

void ActivityTracker::startTracking() {
    if (observer_) {
        return;
    }
    const auto record = [this](const WorkspaceApplication& application) {
        if (application.bundleIdentifier) {
            recordActivation(*application.bundleIdentifier, platform_.clock.now());
        }
    };
    if (const auto frontmost = platform_.workspace.frontmostApplication()) {
        record(*frontmost);
    }
    observer_ = platform_.workspace.onActivated(record);
}

std::vector<std::string>
ActivityTracker::inactiveApps(std::chrono::duration<double> threshold) const {
    const Date now = platform_.clock.now();
    std::vector<std::string> inactive;
    for (const auto& [bundleIdentifier, date] : lastActiveTime_) {
        // Compares the age, not a cutoff date, which may be out of range.
        if (now - date > threshold) {
            inactive.push_back(bundleIdentifier);
        }
    }
    return inactive;
}

} // namespace calmora
