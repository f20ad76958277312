// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "model/AppInfo.h"

#include <functional>
#include <span>
#include <string>

namespace calmora {

class AlertSession;
class AppDelegate;

/// Applications as lines of process id, identifier and name, separated by tabs; a member of a group
/// has a line of its own.
[[nodiscard]] std::string listAsText(std::span<const AppInfo> rows);

/// Applications as a JSON array; the keys are in the manual page.
[[nodiscard]] std::string listAsJson(std::span<const AppInfo> rows);

/// Carries out in the running instance what the command line and launchers ask for.
class InstanceCommands {
  public:
    /// What the delegate does not do itself.
    struct Actions {
        std::function<void()> openSettings;
        std::function<std::string(std::span<const ProcessId>)> diagnose;
        std::function<void()> terminate;
    };

    /// The references must outlive this object.
    InstanceCommands(AppDelegate& delegate, const AlertSession& alerts, Actions actions)
        : delegate_(delegate), alerts_(alerts), actions_(std::move(actions)) {}

    /// Blocks while applications quit or the user is asked. Does nothing but report while an alert
    /// is open.
    CommandAnswer run(const CommandLine& line);

  private:
    [[nodiscard]] bool isBusyWith(AppCommand command) const;

    AppDelegate& delegate_;
    const AlertSession& alerts_;
    Actions actions_;
};

} // namespace calmora
