// SPDX-License-Identifier: MIT
#include "model/ProcessMonitor.h"

#include "platform/Bundle.h"
#include "platform/ProcessTable.h"
#include "platform/Text.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace calmora {
namespace {

constexpr std::string_view finder = "com.apple.finder";

/// Compares identifiers as optionals: if the program has none, every application without one is
/// left out too.
bool isListed(const WorkspaceApplication& application, const std::optional<std::string>& own) {
    return application.bundleIdentifier != own && application.localizedName &&
           !application.localizedName->empty();
}

AppInfo record(const WorkspaceApplication& application) {
    AppInfo app;
    app.pid = application.processIdentifier;
    app.name = application.localizedName.value_or("Unknown");
    app.bundleIdentifier = application.bundleIdentifier;
    app.otherBundleIdentifiers = application.otherIdentifiers;
    app.icon = application.icon;
    app.candidates = application.candidates;
    app.canBeForced = application.canBeForced;
    app.isActivityKnown = application.isActivityKnown;
    app.desktopId = application.desktopId;
    app.startTime = application.startTime;
    return app;
}

} // namespace

std::vector<AppInfo> ProcessMonitor::getRunningApps(const ApplicationSnapshot& running,
                                                    bool includeFinder) const {
    const std::optional<std::string> own = platform_.bundle.bundleIdentifier();
    std::vector<AppInfo> apps;
    for (const WorkspaceApplication& application : running) {
        if (application.activationPolicy == ActivationPolicy::regular &&
            isListed(application, own) &&
            (includeFinder || application.bundleIdentifier != finder)) {
            apps.push_back(record(application));
        }
    }
    sortByName(apps);
    return apps;
}

std::vector<AppInfo> ProcessMonitor::getBackgroundApps(const ApplicationSnapshot& running) const {
    const std::optional<std::string> own = platform_.bundle.bundleIdentifier();

    // The first with a process id counts.
    Parents parents;
    parents.reserve(running.size());
    for (const WorkspaceApplication& application : running) {
        const bool isRegular = application.activationPolicy == ActivationPolicy::regular;
        parents.try_emplace(application.processIdentifier,
                            isRegular ? application.bundleIdentifier : std::nullopt);
    }

    std::vector<AppInfo> apps;
    for (const WorkspaceApplication& application : running) {
        if (application.activationPolicy == ActivationPolicy::regular ||
            !isListed(application, own) || !application.bundleIdentifier) {
            continue;
        }
        AppInfo& app = apps.emplace_back(record(application));
        app.isBackgroundApp = true;
        app.parentBundleIdentifier = parentAppBundleID(app.pid, parents);
    }
    sortByName(apps);
    return apps;
}

std::vector<AppInfo> ProcessMonitor::groupBackgroundApps(std::vector<AppInfo> apps) const {
    std::map<std::string, std::vector<AppInfo>> groups;
    std::vector<AppInfo> ungrouped;
    for (AppInfo& app : apps) {
        if (app.parentBundleIdentifier) {
            groups[*app.parentBundleIdentifier].push_back(std::move(app));
        } else {
            ungrouped.push_back(std::move(app));
        }
    }

    std::vector<AppInfo> result;
    result.reserve(groups.size() + ungrouped.size());
    for (auto& [parent, members] : groups) {
        const std::string_view lastComponent =
            std::string_view(parent).substr(parent.rfind('.') + 1);
        AppInfo& row = result.emplace_back();
        row.pid = members.front().pid;
        row.name = platform_.text.capitalized(lastComponent);
        row.bundleIdentifier = parent;
        row.icon = members.front().icon;
        row.isBackgroundApp = true;
        row.childProcesses = std::move(members);
    }
    std::ranges::move(ungrouped, std::back_inserter(result));
    return result;
}

std::optional<ProcessId> ProcessMonitor::parentPID(ProcessId process) const {
    const std::optional<ProcessId> parent = platform_.processes.parent(process);
    return parent && *parent >= 1 ? parent : std::nullopt;
}

std::optional<std::string> ProcessMonitor::parentAppBundleID(ProcessId process,
                                                             const Parents& parents) const {
    const auto parent = parentPID(process);
    const auto found = parent ? parents.find(*parent) : parents.end();
    return found != parents.end() ? found->second : std::nullopt;
}

void ProcessMonitor::sortByName(std::vector<AppInfo>& apps) const {
    std::ranges::stable_sort(apps, [this](const AppInfo& a, const AppInfo& b) {
        return platform_.text.compare(a.name, b.name) < 0;
    });
}

} // namespace calmora
