// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "support/Subscription.h"

#include <functional>
#include <string>
#include <vector>

namespace calmora {

/// Where an application exports its actions, from its windows' properties _GTK_UNIQUE_BUS_NAME and
/// _GTK_APPLICATION_OBJECT_PATH.
struct ExportedActions {
    /// Unique name on the session bus, such as ":1.42".
    std::string busName;
    /// Object path of the application's actions.
    std::string objectPath;
};

/// The programs on the session bus. Requests everything ahead of time and follows the bus's
/// signals; only flush() waits. Empty without a session bus. Main thread.
class BusApplications {
  public:
    virtual ~BusApplications() = default;

    /// Whether the process shows a status item in the panel (org.kde.StatusNotifierItem).
    [[nodiscard]] virtual bool ownsStatusItem(ProcessId process) const = 0;

    /// The processes that show a status item, in ascending order.
    [[nodiscard]] virtual std::vector<ProcessId> statusItemProcesses() const = 0;

    /// Whether the process is on the bus as a media player (org.mpris.MediaPlayer2.*).
    [[nodiscard]] virtual bool isMediaPlayer(ProcessId process) const = 0;

    /// Asks the media player to quit. False if the process is none or cannot quit; true if a
    /// request was sent. Source: MPRIS D-Bus interface, Quit and CanQuit.
    virtual bool quitMediaPlayer(ProcessId process) = 0;

    /// Queries asynchronously whether the application exports the action "quit".
    virtual void learnActions(const ExportedActions& actions) = 0;

    /// Activates the exported action "quit". False unless learnActions() has found it; true if a
    /// request was sent. Source: org.gtk.Actions.
    virtual bool activateQuit(const ExportedActions& actions) = 0;

    /// The owners of essential bus names, including the bus itself, in ascending order.
    [[nodiscard]] virtual std::vector<ProcessId> protectedProcesses() const = 0;

    /// Notifies that statusItemProcesses(), isMediaPlayer() or protectedProcesses() changed.
    [[nodiscard]] virtual Subscription onChanged(std::function<void()> handler) = 0;

    /// Waits briefly until the bus has received what was sent.
    virtual void flush() = 0;
};

} // namespace calmora
