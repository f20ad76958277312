// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "platform/ProcessId.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace calmora {

class Launcher;
class Workspace;

/// The applications that the last quit ended, so that they can be started again. Main thread.
class ReopenList {
  public:
    /// An empty list. Both arguments must outlive it.
    ReopenList(Workspace& workspace, Launcher& launcher)
        : workspace_(workspace), launcher_(launcher) {}

    /// Keeps what one quit operation ended, and forgets the operation before if any of it can be
    /// started again: what has a desktop file that can, and of which no other instance runs.
    /// Several instances of an application count as one. Group rows are ignored.
    void remember(std::vector<AppInfo> ended);

    /// Whether there is nothing to reopen.
    [[nodiscard]] bool isEmpty() const { return ended_.empty(); }

    /// The names of the applications, in the order in which they were started.
    [[nodiscard]] std::vector<std::string> names() const;

    /// Called when the content has changed.
    [[nodiscard]] Subscription onChanged(std::function<void()> handler) {
        return changed_.connect(std::move(handler));
    }

    /// Starts each application that does not run again already, in the order in which they were
    /// started first. The list is empty afterwards.
    void reopen();

    /// Whether the application can be started again.
    [[nodiscard]] bool canRestart(const AppInfo& app) const;

    /// The quit operation that begins now, or is under way, is to start this application again.
    void prepareRestart(const AppInfo& app);

    /// Starts what was prepared and is gone, unless it came back by itself. Gives the processes
    /// whose applications run again. The operation's remember() keeps of what was prepared only
    /// what could not be started, and forgets what has stayed.
    std::set<ProcessId> restartPrepared(const std::vector<AppInfo>& gone);

  private:
    /// An application that is to be started again.
    struct Restart {
        ProcessId pid = 0;
        std::string desktopId;
        /// Its instances before the quit.
        std::set<ProcessId> before;
        bool isDone = false;
    };

    [[nodiscard]] std::set<ProcessId> instances(const std::string& desktopId);

    Workspace& workspace_;
    Launcher& launcher_;
    /// One for each desktop file.
    std::vector<AppInfo> ended_;
    std::vector<Restart> restarts_;
    Signal<> changed_;
};

} // namespace calmora
