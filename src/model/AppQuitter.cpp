// SPDX-License-Identifier: MIT
#include "model/AppQuitter.h"

#include "platform/Clock.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace calmora {

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
    std::optional<ForcedQuit> quit = ForcedQuit::of(operations_, std::move(app));
    if (!quit) {
        return false;
    }
    std::set<ProcessId> asked;
    quit->ask(asked);
    const auto isOver = [&] { return !quit->anyExists(); };
    if (waitUntil(isOver, forceQuitTimeout)) {
        return true;
    }
    const ForcedQuit::Kill kill = quit->kill();
    return kill == ForcedQuit::Kill::needless ||
           (kill == ForcedQuit::Kill::sent && waitUntil(isOver, hardKillTimeout));
}

bool AppQuitter::anyExists(const std::set<ProcessId>& pids) const {
    return std::ranges::any_of(pids,
                               [this](ProcessId pid) { return operations_.processExists(pid); });
}

} // namespace calmora
