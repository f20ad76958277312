// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "model/QuitOperations.h"
#include "platform/Platform.h"
#include "platform/ProcessId.h"

#include <chrono>
#include <functional>
#include <set>
#include <span>

namespace calmora {

class Clock;

/// Quits applications and reports which ones are gone: success means that the processes no longer
/// exist, never that a request was accepted. The caller checks the never-quit list. Blocks the
/// calling thread until every wait has ended. Keeps no state between calls.
class AppQuitter {
  public:
    using Application = AppQuitterOperations::Application;

    /// How long a politely asked application may take.
    static constexpr std::chrono::milliseconds gracefulQuitTimeout{1500};
    /// How long forced termination may take before the kill signal.
    static constexpr std::chrono::milliseconds forceQuitTimeout{500};
    /// How long the kill signal may take.
    static constexpr std::chrono::milliseconds hardKillTimeout{1000};
    /// Pause between two checks.
    static constexpr std::chrono::microseconds pollInterval{50'000};

    /// A quitter that works on the machine.
    explicit AppQuitter(Platform platform);

    /// A quitter that works through `operations` and measures its waits by `clock`.
    AppQuitter(AppQuitterOperations operations, const Clock& clock);

    /// Quits one application: politely within 1.5 s; or, with `force`, every running instance and
    /// the processes inside their bundles, by the kill signal where needed, within 0.5 s plus 1.0
    /// s. False when there is no such application or a process remains. One with several candidates
    /// is never forced; politely it is gone once all its windows are.
    bool quitApp(ProcessId pid, bool force);

    /// Quits the selected records one after the other, as quitApp() does. Returns the process ids
    /// of those that were quit.
    std::set<ProcessId> quitApps(std::span<const AppInfo> apps, bool force);

    /// The running application with a process id; null where there is none.
    [[nodiscard]] Application lookupApp(ProcessId pid) const { return operations_.lookupApp(pid); }

    /// Waits until none of the processes exists; false if some still do after `timeout`. Tests at
    /// least once, and does not sleep if they are gone already.
    bool waitForExit(const std::set<ProcessId>& pids, std::chrono::milliseconds timeout);

    /// Waits until an application that was asked to quit is gone; false if it still runs after
    /// `timeout`.
    bool waitForEnd(const RunningApplication& app, std::chrono::milliseconds timeout);

  private:
    bool waitUntil(const std::function<bool()>& isOver, std::chrono::milliseconds timeout);
    bool forceQuit(Application app);
    [[nodiscard]] bool anyExists(const std::set<ProcessId>& pids) const;

    AppQuitterOperations operations_;
    const Clock& clock_;
};

} // namespace calmora
