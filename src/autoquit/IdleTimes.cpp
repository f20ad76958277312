// SPDX-License-Identifier: MIT
#include "autoquit/IdleTimes.h"

#include "platform/Clock.h"
#include "platform/Workspace.h"

#include <algorithm>

namespace calmora {

void IdleTimes::setFollowing(bool follows) {
    if (follows == static_cast<bool>(activations_)) {
        return;
    }
    uses_.clear();
    front_.reset();
    activations_.reset();
    away_.setFollowing(follows);
    if (!follows) {
        return;
    }
    awayBefore_ = away_.total();
    if (const auto frontmost = platform_.workspace.frontmostApplication()) {
        front_ = frontmost->bundleIdentifier;
    }
    activations_ = platform_.workspace.onActivated([this](const WorkspaceApplication& app) {
        // Whoever looks at a window for an hour has used it for that hour.
        if (front_) {
            recordUse(*front_);
        }
        front_ = app.bundleIdentifier;
        if (front_) {
            recordUse(*front_);
        }
    });
}

std::optional<std::chrono::duration<double>>
IdleTimes::idle(const std::string& bundleIdentifier) const {
    const auto activation = tracker_.lastActiveTime().find(bundleIdentifier);
    if (activation == tracker_.lastActiveTime().end()) {
        return std::nullopt;
    }
    const auto use = uses_.find(bundleIdentifier);
    const bool isKnown = use != uses_.end();
    const ActivityTracker::Date last =
        isKnown ? std::max(use->second.at, activation->second) : activation->second;
    std::chrono::duration<double> idle = platform_.clock.now() - last;
    if (activations_) {
        idle -= away_.total() - (isKnown ? use->second.away : awayBefore_);
    }
    return std::max(idle, std::chrono::duration<double>::zero());
}

void IdleTimes::recordUse(const std::string& bundleIdentifier, std::chrono::nanoseconds ago) {
    const auto at =
        platform_.clock.now() - std::chrono::duration_cast<ActivityTracker::Date::duration>(ago);
    const auto [use, isNew] = uses_.try_emplace(bundleIdentifier, Use{at, away_.total()});
    if (!isNew && at >= use->second.at) {
        use->second = {at, away_.total()};
    }
}

void IdleTimes::prune() {
    std::erase_if(
        uses_, [this](const auto& use) { return !tracker_.lastActiveTime().contains(use.first); });
}

} // namespace calmora
