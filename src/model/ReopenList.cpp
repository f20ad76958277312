// SPDX-License-Identifier: MIT
#include "model/ReopenList.h"

#include "platform/Launcher.h"
#include "platform/Workspace.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace calmora {

void ReopenList::remember(std::vector<AppInfo> ended) {
    if (isRestarting_) {
        return;
    }
    std::set<ProcessId> gone;
    for (const AppInfo& app : ended) {
        gone.insert(app.pid);
    }
    // Starting what has another instance would only open one more window of that.
    std::set<std::string> taken;
    for (const WorkspaceApplication& application : workspace_.runningApplications()) {
        if (application.desktopId && !gone.contains(application.processIdentifier)) {
            taken.insert(*application.desktopId);
        }
    }
    std::ranges::stable_sort(ended, {}, &AppInfo::startTime);
    std::erase_if(ended, [&](const AppInfo& app) {
        return !canRestart(app) || !taken.insert(*app.desktopId).second;
    });
    if (!ended.empty()) {
        ended_ = std::move(ended);
        changed_.emit();
    }
}

std::vector<std::string> ReopenList::names() const {
    std::vector<std::string> names;
    std::ranges::transform(ended_, std::back_inserter(names), &AppInfo::name);
    return names;
}

void ReopenList::reopen() {
    // Emptied first: whatever happens meanwhile, nothing is started twice.
    const std::vector<AppInfo> ended = std::exchange(ended_, {});
    for (const AppInfo& app : ended) {
        if (instances(*app.desktopId).empty()) {
            launcher_.launch(*app.desktopId);
        }
    }
    if (!ended.empty()) {
        changed_.emit();
    }
}

bool ReopenList::canRestart(const AppInfo& app) const {
    return app.desktopId && launcher_.canLaunch(*app.desktopId);
}

bool ReopenList::restart(const AppInfo& app, const std::function<bool()>& quit) {
    if (!canRestart(app)) {
        return false;
    }
    const AppInfo kept = app;
    const std::string& desktopId = *kept.desktopId;
    const std::vector<ProcessId> before = instances(desktopId);
    isRestarting_ = true;
    const bool isGone = quit();
    isRestarting_ = false;
    if (!isGone) {
        return false;
    }
    const std::vector<ProcessId> after = instances(desktopId);
    const bool isBack = std::ranges::any_of(after, [&](ProcessId process) {
        return std::ranges::find(before, process) == before.end();
    });
    if (isBack || launcher_.launch(desktopId)) {
        return !isBack;
    }
    remember({kept});
    return false;
}

std::vector<ProcessId> ReopenList::instances(const std::string& desktopId) {
    std::vector<ProcessId> processes;
    for (const WorkspaceApplication& application : workspace_.runningApplications()) {
        if (application.desktopId == desktopId) {
            processes.push_back(application.processIdentifier);
        }
    }
    return processes;
}

} // namespace calmora
