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
    for (const Restart& restart : std::exchange(restarts_, {})) {
        std::erase_if(ended,
                      [&](const AppInfo& app) { return restart.isDone && app.pid == restart.pid; });
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

void ReopenList::prepareRestart(const AppInfo& app) {
    if (canRestart(app)) {
        restarts_.push_back({app.pid, *app.desktopId, instances(*app.desktopId)});
    }
}

std::set<ProcessId> ReopenList::restartPrepared(const std::vector<AppInfo>& gone) {
    std::set<ProcessId> running;
    for (Restart& restart : restarts_) {
        if (restart.isDone || !std::ranges::count(gone, restart.pid, &AppInfo::pid)) {
            continue;
        }
        const bool isBack = !std::ranges::includes(restart.before, instances(restart.desktopId));
        restart.isDone = isBack || launcher_.launch(restart.desktopId);
        if (restart.isDone) {
            running.insert(restart.pid);
        }
    }
    return running;
}

std::set<ProcessId> ReopenList::instances(const std::string& desktopId) {
    std::set<ProcessId> processes;
    for (const WorkspaceApplication& application : workspace_.runningApplications()) {
        if (application.desktopId == desktopId) {
            processes.insert(application.processIdentifier);
        }
    }
    return processes;
}

} // namespace calmora
