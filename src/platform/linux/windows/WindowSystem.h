// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"
#include "platform/ProcessId.h"
#include "support/Subscription.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// A window's number in its window system; 0 means none.
using WindowId = std::uint64_t;

/// The purpose of a window: the first known type of its list. Source: EWMH, _NET_WM_WINDOW_TYPE.
enum class WindowType { none, normal, dialog, utility, dock, desktop, other };

/// How reliably a window's process is known.
enum class ProcessCertainty {
    /// Not at all.
    unknown,
    /// The window claims it. Never signal such a process because of its windows.
    claimed,
    /// Confirmed by the window system.
    certain,
};

/// One top-level window at one moment. Texts are the client's, at most 1024 bytes each, and may
/// contain broken UTF-8 or control characters.
struct TopLevelWindow {
    WindowId id = 0;
    /// The local owner; absent if unknown and for remote windows.
    std::optional<ProcessId> process = {};
    ProcessCertainty certainty = ProcessCertainty::unknown;
    /// All processes of the owning application, ascending, if the window system knows only the
    /// application; empty if `process` is known. Never signal one of them because of the window.
    std::vector<ProcessId> candidates = {};
    /// Drawn by a program on another machine (ssh -X). The local process that forwards it is not
    /// its application.
    bool isRemote = false;

    /// What the X server calls this window, where a Wayland compositor lists a window of X11.
    std::optional<std::uint32_t> x11Id = {};
    /// It may be a window of X11 that a Wayland compositor lists without saying so.
    bool mayBeX11 = false;

    /// Under which application id a Wayland client shows the window (xdg_toplevel.set_app_id).
    std::string applicationId = {};
    /// WM_CLASS, first part.
    std::string instance = {};
    /// WM_CLASS, second part; `applicationId` where a Wayland client has set that.
    std::string className = {};
    /// _GTK_APPLICATION_ID.
    std::string gtkApplicationId = {};
    /// _GTK_UNIQUE_BUS_NAME and _GTK_APPLICATION_OBJECT_PATH: the application's exported actions on
    /// the session bus.
    std::string gtkBusName = {};
    std::string gtkObjectPath = {};
    /// _KDE_NET_WM_DESKTOP_FILE.
    std::string kdeDesktopFile = {};

    /// The parent window; may be the root window or a group leader.
    WindowId transientFor = 0;
    /// The leader of its window group.
    WindowId group = 0;
    WindowType type = WindowType::none;
    bool skipsTaskbar = false;
    bool isModal = false;
    /// Stands for windows that nobody tells of: their application has some, or had some. When it is
    /// in front is not known.
    bool isStandIn = false;
    /// Supports polite closing. Never ask other windows: the window manager would kill their
    /// client.
    bool canBeAsked = false;
    /// Its program is ended if it takes longer than a few seconds to answer a request to close, as
    /// one does that saves something large. Ask it only when the user wants that.
    bool mustAnswerSoon = false;
    /// Fills an output: neither minimised nor on a workspace that is not shown. Only certain in
    /// windowsReadAfresh(): that another workspace is shown is no change of windows().
    bool isFullScreen = false;

    /// The process to list the window under: its owner, else the first candidate.
    [[nodiscard]] std::optional<ProcessId> listedProcess() const {
        return process || candidates.empty() ? process : std::optional(candidates.front());
    }

    friend bool operator==(const TopLevelWindow&, const TopLevelWindow&) = default;
};

/// A window system's view of the programs that draw in it. All knowledge of window protocols is
/// behind this interface. Main thread.
class WindowSystem {
  public:
    virtual ~WindowSystem() = default;

    /// Whether the connection works. Once false it stays false, and all other results are empty.
    [[nodiscard]] virtual bool isAlive() const = 0;

    /// The display without its screen, such as ":0", as in the variable DISPLAY; empty if there is
    /// no such name.
    [[nodiscard]] virtual std::string displayName() const { return {}; }

    /// The managed top-level windows, oldest first, including docks and desktops. Valid until the
    /// next call. Free while nothing has changed and onWindowsChanged() has a listener; otherwise a
    /// few round trips, whatever the number of windows.
    [[nodiscard]] virtual const std::vector<TopLevelWindow>& windows() = 0;

    /// windows() with everything read again, owners included: for irreversible decisions. A few
    /// round trips, whatever the number of windows.
    [[nodiscard]] virtual const std::vector<TopLevelWindow>& windowsReadAfresh() = 0;

    /// Whether an application without any of windows() shows no window. False where programs can
    /// have windows unknown here, as for an X server in a Wayland session.
    [[nodiscard]] virtual bool coversAllWindows() const = 0;

    /// Whether TopLevelWindow::mustAnswerSoon is true of windows here.
    [[nodiscard]] virtual bool endsSlowClients() const { return false; }

    /// The window with the keyboard focus; absent if none.
    [[nodiscard]] virtual std::optional<WindowId> activeWindow() = 0;

    /// Since the user's last input of any kind; absent where it is not told. At most one round
    /// trip.
    [[nodiscard]] virtual std::optional<std::chrono::milliseconds> sinceInput() { return {}; }

    /// Notifies that windows() has changed. Never called from within a call of this interface.
    [[nodiscard]] virtual Subscription onWindowsChanged(std::function<void()> handler) = 0;

    /// Notifies that activeWindow() may have changed.
    [[nodiscard]] virtual Subscription onActiveWindowChanged(std::function<void()> handler) = 0;

    /// Asks the window to close, as its close button would. One with a merely claimed owner is
    /// asked directly, because a window manager may signal the owner of one that does not answer.
    /// False if the window is gone, does not support closing or no longer belongs to `process`; all
    /// of this is read afresh. The request may wait until flush().
    virtual bool requestClose(WindowId window, ProcessId process) = 0;

    /// Brings the window to the front, as a click on it in a task bar would, and shows it first if
    /// it is minimized. False where that is not possible. The request may wait until flush().
    virtual bool activate(WindowId /*window*/) { return false; }

    /// Asks the window's program whether it handles events. Does nothing where neither windows nor
    /// the window system know such a question. The request may wait until flush().
    virtual void ping(WindowId /*window*/) {}

    /// Whether the answer to the last ping() of the window is still missing.
    [[nodiscard]] virtual bool owesAnswer(WindowId /*window*/) { return false; }

    /// The window's own picture, about 64 by 64 pixels; null if none.
    [[nodiscard]] virtual std::shared_ptr<const ImagePixels> icon(WindowId window) = 0;

    /// The protected processes of the display: the server or compositor, the window manager, the
    /// tray, the settings daemon, docks and desktops.
    [[nodiscard]] virtual std::vector<ProcessId> displayProcesses() = 0;

    /// The processes with an icon embedded in the tray (XEMBED).
    [[nodiscard]] virtual std::vector<ProcessId> trayIconProcesses() = 0;

    /// Sends pending requests.
    virtual void flush() = 0;
};

} // namespace calmora
