#pragma once

#include "platform/ProcessId.h"
#include "support/Subscription.h"

#include <functional>
#include <string>
#include <vector>

namespace calmora {

/// Where an application exports its actions, as its windows say
/// (_GTK_UNIQUE_BUS_NAME and _GTK_APPLICATION_OBJECT_PATH).
struct ExportedActions {
    /// Unique name on the session bus, such as ":1.42".
    std::string busName;
    /// Object path of the application's own actions.
    std::string objectPath;

    friend bool operator==(const ExportedActions&, const ExportedActions&) = default;
};

/// What the session bus tells of the programs on it. Everything is asked ahead of time and kept
/// current by the bus's own notices; no function waits for an answer, apart from flush(). Without
/// a session bus there is nothing to tell. Main thread.
class BusApplications {
  public:
    virtual ~BusApplications() = default;

    /// Whether the process shows a status item in the panel (org.kde.StatusNotifierItem).
    [[nodiscard]] virtual bool ownsStatusItem(ProcessId process) const = 0;

    /// The processes that show a status item, in ascending order.
    [[nodiscard]] virtual std::vector<ProcessId> statusItemProcesses() const = 0;

    /// Whether the process is on the bus as a media player (org.mpris.MediaPlayer2.*).
    [[nodiscard]] virtual bool isMediaPlayer(ProcessId process) const = 0;

    /// Asks the media player to quit. False when the process is none or says that it cannot quit
    /// (CanQuit). True means that a request went out. Source: MPRIS D-Bus interface, Quit and
    /// CanQuit.
    virtual bool quitMediaPlayer(ProcessId process) = 0;

    /// Finds out, some time later, whether the application exports the action "quit".
    virtual void learnActions(const ExportedActions& actions) = 0;

    /// Activates the exported action "quit". False when learnActions() has found none so far.
    /// True means that a request went out. Source: org.gtk.Actions.
    virtual bool activateQuit(const ExportedActions& actions) = 0;

    /// The processes that own the bus names on which the session rests, the bus itself included,
    /// in ascending order.
    [[nodiscard]] virtual std::vector<ProcessId> protectedProcesses() const = 0;

    /// Tells that statusItemProcesses(), isMediaPlayer() or protectedProcesses() answer differently
    /// now.
    [[nodiscard]] virtual Subscription onChanged(std::function<void()> handler) = 0;

    /// Returns when the bus has taken what was sent, at most a moment later.
    virtual void flush() = 0;
};

} // namespace calmora
