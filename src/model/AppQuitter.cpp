// SPDX-License-Identifier: MIT
#include "model/AppQuitter.h"

#include "platform/Clock.h"
#include "platform/ProcessTable.h"
#include "platform/Workspace.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <optional>
#include <utility>

namespace calmora {
namespace {

using Application = AppQuitter::Application;

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
    operations.sleep = [platform](std::chrono::microseconds duration) {
        platform.clock.sleep(duration);
    };
    return operations;
}

AppQuitter::AppQuitter(Platform platform)
    : AppQuitter(platformOperations(platform), platform.clock) {}

AppQuitter::AppQuitter(AppQuitterOperations operations, const Clock& clock)
    : operations_(std::move(operations)), clock_(clock) {}

bool AppQuitter::quitApp(ProcessId pid, bool force) {
    Application app = lookupApp(pid);
    if (!app) {
        return false;
    }
    return force ? forceQuit(std::move(app))
                 : app->terminate() && waitForEnd(*app, gracefulQuitTimeout);
}

std::set<ProcessId> AppQuitter::quitApps(std::span<const AppInfo> apps, bool force) {
    std::set<ProcessId> gone;
    for (const AppInfo& app : apps) {
        if (app.isSelected && quitApp(app.pid, force)) {
            gone.insert(app.pid);
        }
    }
    return gone;
}

bool AppQuitter::waitForExit(const std::set<ProcessId>& pids, std::chrono::milliseconds timeout) {
    return waitUntil([&] { return !anyExists(pids); }, timeout);
}

bool AppQuitter::waitUntil(const std::function<bool()>& isOver, std::chrono::milliseconds timeout) {
    // The wall clock may be set back, and the wait would then block the whole program.
    const std::chrono::nanoseconds start = clock_.ticks();
    while (!isOver()) {
        if (clock_.ticks() - start >= timeout) {
            return false;
        }
        operations_.sleep(pollInterval);
    }
    return true;
}

bool AppQuitter::waitForEnd(const RunningApplication& app, std::chrono::milliseconds timeout) {
    return app.hasSeveralCandidates() ? waitUntil([&] { return app.isTerminated(); }, timeout)
                                      : waitForExit({app.processIdentifier()}, timeout);
}

bool AppQuitter::forceQuit(Application app) {
    if (app->hasSeveralCandidates()) {
        return false;
    }
    const ProcessId primaryPID = app->processIdentifier();
    std::vector<Application> related = relatedApps(std::move(app));
    std::set<ProcessId> pids{primaryPID};
    // Whose helpers there are cannot be told either.
    const bool mayHaveHelpersOfOthers = std::erase_if(related, [](const Application& instance) {
                                            return instance->hasSeveralCandidates();
                                        }) > 0;
    for (const Application& instance : related) {
        pids.insert(instance->processIdentifier());
    }
    if (!mayHaveHelpersOfOthers) {
        pids.merge(helpersOf(related));
    }
    bool isDelivered = false;
    for (const Application& instance : related) {
        isDelivered = instance->forceTerminate() || isDelivered;
    }
    if (waitForExit(pids, forceQuitTimeout)) {
        return true;
    }
    return (isDelivered || anyExists(pids)) && hardKill(pids);
}

std::vector<Application> AppQuitter::relatedApps(Application app) const {
    const std::optional<std::string> bundleIdentifier = app->bundleIdentifier();
    std::vector<Application> related;
    related.push_back(std::move(app));
    if (bundleIdentifier) {
        for (Application& other : operations_.lookupAppsByBundleID(*bundleIdentifier)) {
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

std::set<ProcessId> AppQuitter::helpersOf(const std::vector<Application>& related) const {
    std::set<ProcessId> pids;
    for (const Application& app : related) {
        std::optional<std::string> path = app->bundleURL();
        if (!path) {
            if (const auto executable = app->executableURL()) {
                path = executable->parent_path().string();
            }
        }
        if (path) {
            pids.merge(operations_.lookupProcessIDsInBundlePath(*path));
        }
    }
    return pids;
}

bool AppQuitter::hardKill(const std::set<ProcessId>& pids) {
    std::set<ProcessId> alive;
    for (const ProcessId pid : pids) {
        if (operations_.processExists(pid)) {
            alive.insert(pid);
        }
    }
    if (alive.empty()) {
        return true;
    }
    for (const ProcessId pid : alive) {
        errno = 0;
        if (operations_.sendSignal(pid, SIGKILL) != 0 && errno != ESRCH) {
            return false;
        }
    }
    return waitForExit(pids, hardKillTimeout);
}

bool AppQuitter::anyExists(const std::set<ProcessId>& pids) const {
    return std::ranges::any_of(pids,
                               [this](ProcessId pid) { return operations_.processExists(pid); });
}

} // namespace calmora
