#pragma once

#include "platform/Image.h"
#include "platform/ProcessId.h"
#include "support/Subscription.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// A window as its window system numbers it; 0 names none.
using WindowId = std::uint64_t;

/// What a window is for; the first type of its list that is known.
/// Source: EWMH, _NET_WM_WINDOW_TYPE.
enum class WindowType { none, normal, dialog, utility, dock, desktop, other };

/// How the process of a window is known.
enum class ProcessCertainty {
    /// Not at all.
    unknown,
    /// The window says so itself. Such a process is never signalled for its windows' sake.
    claimed,
    /// The window system vouches for it.
    certain,
};

/// One top-level window at one moment. All texts are UTF-8 as the client gave them, which may be
/// broken or contain control characters; each is cut at 1024 bytes.
struct TopLevelWindow {
    WindowId id = 0;
    /// The local process that owns the window; absent where none can be told, and for remote
    /// windows.
    std::optional<ProcessId> process = {};
    ProcessCertainty certainty = ProcessCertainty::unknown;
    /// Where the window system tells only which application owns the window: all processes of that
    /// application, in ascending order. Empty where `process` is known. None of them may be
    /// signalled on account of the window.
    std::vector<ProcessId> candidates = {};
    /// Drawn by a program elsewhere (ssh -X, another machine). Whatever local process forwards it
    /// is not its application.
    bool isRemote = false;

    /// Under which application id a Wayland client shows the window (xdg_toplevel.set_app_id).
    std::string applicationId = {};
    /// WM_CLASS, first part.
    std::string instance = {};
    /// WM_CLASS, second part.
    std::string className = {};
    /// _GTK_APPLICATION_ID.
    std::string gtkApplicationId = {};
    /// _GTK_UNIQUE_BUS_NAME and _GTK_APPLICATION_OBJECT_PATH: where the application exports its
    /// actions on the session bus.
    std::string gtkBusName = {};
    std::string gtkObjectPath = {};
    /// _KDE_NET_WM_DESKTOP_FILE.
    std::string kdeDesktopFile = {};

    /// The window that this one is transient for; the root window or a group leader are possible.
    WindowId transientFor = 0;
    /// The leader of its window group.
    WindowId group = 0;
    WindowType type = WindowType::none;
    bool skipsTaskbar = false;
    bool isModal = false;
    /// It takes part in the polite way of closing; another window must never be asked, because
    /// the window manager would kill its client.
    bool canBeAsked = false;

    /// The process that the window is listed under: its owner, else the first that may be.
    [[nodiscard]] std::optional<ProcessId> listedProcess() const {
        return process || candidates.empty() ? process : std::optional(candidates.front());
    }

    friend bool operator==(const TopLevelWindow&, const TopLevelWindow&) = default;
};

/// What a window system tells of the programs that draw in it. Everything that knows a protocol
/// of windows stands behind this interface. Main thread.
class WindowSystem {
  public:
    virtual ~WindowSystem() = default;

    /// Whether there is a connection to a window system. Once false it stays false and everything
    /// else answers with nothing.
    [[nodiscard]] virtual bool isAlive() const = 0;

    /// The display without its screen, such as ":0", as programs that draw on it have it in the
    /// variable DISPLAY; empty when the window system goes by no such name.
    [[nodiscard]] virtual std::string displayName() const { return {}; }

    /// The managed top-level windows, oldest first, those of docks and desktops included. Valid
    /// until the next call. Costs nothing when nothing has changed while onWindowsChanged() has a
    /// listener; otherwise a few round trips, whatever the number of windows.
    [[nodiscard]] virtual const std::vector<TopLevelWindow>& windows() = 0;

    /// windows(), with everything read again that was known before this call, owners included: for
    /// decisions that nobody can take back. A few round trips, whatever the number of windows.
    [[nodiscard]] virtual const std::vector<TopLevelWindow>& windowsReadAfresh() = 0;

    /// Whether an application that has none of windows() shows none. False where programs can have
    /// windows that this window system knows nothing of, as an X server on a Wayland session.
    [[nodiscard]] virtual bool coversAllWindows() const = 0;

    /// The window that has the keyboard; absent when none has.
    [[nodiscard]] virtual std::optional<WindowId> activeWindow() = 0;

    /// Tells that windows() gives something else now. Never called from within a call of this
    /// interface.
    [[nodiscard]] virtual Subscription onWindowsChanged(std::function<void()> handler) = 0;

    /// Tells that activeWindow() may give something else now.
    [[nodiscard]] virtual Subscription onActiveWindowChanged(std::function<void()> handler) = 0;

    /// Asks the window to close, as its close button would; one whose owner is merely claimed is
    /// asked directly, since a window manager may signal the owner of one that does not answer.
    /// False when the window is gone, takes no part in that, or is not `process`'s any more, all of
    /// which is read afresh. The request may wait until flush().
    virtual bool requestClose(WindowId window, ProcessId process) = 0;

    /// The picture that the window carries itself, of about 64 by 64 pixels; null when it has none.
    [[nodiscard]] virtual std::shared_ptr<const ImagePixels> icon(WindowId window) = 0;

    /// The processes that make up the desktop's display and must live: the server or compositor,
    /// the window manager, the tray, the settings daemon, docks and desktops.
    [[nodiscard]] virtual std::vector<ProcessId> displayProcesses() = 0;

    /// The processes that have an icon embedded in the tray (XEMBED).
    [[nodiscard]] virtual std::vector<ProcessId> trayIconProcesses() = 0;

    /// Sends what is still waiting.
    virtual void flush() = 0;
};

} // namespace calmora
