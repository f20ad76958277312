// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <functional>
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

    /// Whether restart() can start the application again.
    [[nodiscard]] bool canRestart(const AppInfo& app) const;

    /// Lets `quit` quit an application and starts it again if that returns true, which means that
    /// it is gone, unless it came back by itself. Whether it was started. The last quit stays
    /// remembered; this one is only if the start fails.
    bool restart(const AppInfo& app, const std::function<bool()>& quit);

  private:
    [[nodiscard]] std::vector<ProcessId> instances(const std::string& desktopId);

    Workspace& workspace_;
    Launcher& launcher_;
    /// One for each desktop file.
    std::vector<AppInfo> ended_;
    /// The quit under way is part of restart().
    bool isRestarting_ = false;
    Signal<> changed_;
};

} // namespace calmora
