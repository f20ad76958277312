// SPDX-License-Identifier: MIT
#include "model/QuitOperations.h"

#include "platform/Clock.h"
#include "platform/ProcessTable.h"

#include <algorithm>
#include <cerrno>
#include <csignal>

namespace calmora {
namespace {

using Application = AppQuitterOperations::Application;

/// Binds the table to the application's process. The application is asked again afterwards, because
/// the pid may have been reused before the table held it.
bool hold(ProcessTable& processes, const RunningApplication& app) {
    return processes.hold(app.processIdentifier()) && !app.isTerminated();
}

bool exists(ProcessTable& processes, ProcessId process) {
    if (process < 1) {
        return false;
    }
    errno = 0;
    return processes.sendSignal(process, 0) == 0 || errno != ESRCH;
}

/// Compares paths as plain text on purpose: a closing slash in the bundle path decides whether
/// siblings with the same beginning belong to it. The workspace knows which programs below it
/// belong to others.
std::set<ProcessId> pidsInBundlePath(const Workspace& workspace, ProcessTable& processes,
                                     const std::string& path) {
    std::set<ProcessId> found;
    if (path.empty()) {
        return found;
    }
    const auto runsInside = [&](ProcessId process) {
        const std::optional<std::string> executable = processes.executablePath(process);
        return executable && executable->starts_with(path) &&
               !workspace.belongsToAnotherProgram(path, *executable);
    };
    for (const ProcessId process : processes.allProcesses()) {
        // Read again once held: the pid may have been reused in between.
        if (process >= 1 && runsInside(process) && processes.hold(process) && runsInside(process)) {
            found.insert(process);
        }
    }
    return found;
}

std::vector<Application> relatedApps(const AppQuitterOperations& operations, Application app) {
    const std::optional<std::string> bundleIdentifier = app->bundleIdentifier();
    std::vector<Application> related;
    related.push_back(std::move(app));
    if (bundleIdentifier) {
        for (Application& other : operations.lookupAppsByBundleID(*bundleIdentifier)) {
            const bool isSeen = std::ranges::any_of(related, [&](const Application& seen) {
                return seen->processIdentifier() == other->processIdentifier();
            });
            if (!isSeen) {
                related.push_back(std::move(other));
            }
        }
    }
    return related;
}

std::set<ProcessId> helpersOf(const AppQuitterOperations& operations,
                              const std::vector<Application>& related) {
    std::set<ProcessId> pids;
    for (const Application& app : related) {
        std::optional<std::string> path = app->bundleURL();
        if (!path) {
            if (const auto executable = app->executableURL()) {
                path = executable->parent_path().string();
            }
        }
        if (path) {
            pids.merge(operations.lookupProcessIDsInBundlePath(*path));
        }
    }
    return pids;
}

} // namespace

AppQuitterOperations platformOperations(Platform platform) {
    AppQuitterOperations operations;
    operations.lookupApp = [platform](ProcessId pid) {
        Application app = platform.workspace.runningApplication(pid);
        return app && hold(platform.processes, *app) ? std::move(app) : nullptr;
    };
    operations.lookupAppsByBundleID = [platform](const std::string& bundleIdentifier) {
        std::vector<Application> apps =
            platform.workspace.runningApplicationsWithBundleIdentifier(bundleIdentifier);
        std::erase_if(
            apps, [&](const Application& app) { return !app || !hold(platform.processes, *app); });
        return apps;
    };
    operations.sendSignal = [platform](ProcessId pid, std::int32_t signal) {
        return platform.processes.sendSignal(pid, signal);
    };
    operations.processExists = [platform](ProcessId pid) {
        return exists(platform.processes, pid);
    };
    operations.lookupProcessIDsInBundlePath = [platform](const std::string& path) {
        return pidsInBundlePath(platform.workspace, platform.processes, path);
    };
    operations.heldProcess = [platform](ProcessId pid) {
        return platform.processes.heldProcess(pid);
    };
    operations.sleep = [platform](std::chrono::microseconds duration) {
        platform.clock.sleep(duration);
    };
    return operations;
}

HeldProcesses::HeldProcesses(const AppQuitterOperations& operations,
                             const std::set<ProcessId>& pids) {
    for (const ProcessId pid : pids) {
        processes_.emplace(pid, operations.heldProcess(pid));
    }
}

bool HeldProcesses::exists(const AppQuitterOperations& operations,
                           const std::pair<const ProcessId, std::uint64_t>& process) {
    return operations.heldProcess(process.first) == process.second &&
           operations.processExists(process.first);
}

std::set<ProcessId> HeldProcesses::existing(const AppQuitterOperations& operations) const {
    std::set<ProcessId> found;
    for (const auto& process : processes_) {
        if (exists(operations, process)) {
            found.insert(process.first);
        }
    }
    return found;
}

bool HeldProcesses::anyExists(const AppQuitterOperations& operations) const {
    return std::ranges::any_of(processes_,
                               [&](const auto& process) { return exists(operations, process); });
}

std::optional<ForcedQuit> ForcedQuit::of(const AppQuitterOperations& operations, Application app) {
    if (app->hasSeveralCandidates()) {
        return {};
    }
    std::set<ProcessId> pids{app->processIdentifier()};
    std::vector<Application> related = relatedApps(operations, std::move(app));
    // Whose helpers there are cannot be told either.
    const bool mayHaveHelpersOfOthers = std::erase_if(related, [](const Application& instance) {
                                            return instance->hasSeveralCandidates();
                                        }) > 0;
    for (const Application& instance : related) {
        pids.insert(instance->processIdentifier());
    }
    if (!mayHaveHelpersOfOthers) {
        pids.merge(helpersOf(operations, related));
    }
    return ForcedQuit(operations, std::move(related), HeldProcesses(operations, pids));
}

void ForcedQuit::ask(std::set<ProcessId>& asked) {
    for (const Application& instance : instances_) {
        const bool isFirst = asked.insert(instance->processIdentifier()).second;
        isDelivered_ = !isFirst || instance->forceTerminate() || isDelivered_;
    }
}

ForcedQuit::Kill ForcedQuit::kill() const {
    if (!isDelivered_ && !anyExists()) {
        return Kill::refused;
    }
    const std::set<ProcessId> alive = victims_.existing(*operations_);
    if (alive.empty()) {
        return Kill::needless;
    }
    for (const ProcessId pid : alive) {
        errno = 0;
        if (operations_->sendSignal(pid, SIGKILL) != 0 && errno != ESRCH) {
            return Kill::refused;
        }
    }
    return Kill::sent;
}

} // namespace calmora
