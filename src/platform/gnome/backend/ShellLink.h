// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geometry.h"
#include "platform/desktop/dbus/Calls.h"
#include "platform/gnome/ShellWindow.h"
#include "platform/gnome/backend/ShellMessages.h"
#include "support/Signal.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// The program's end of the connection to our extension in GNOME's shell. It attaches itself
/// whenever the extension appears, as after the screen was locked, and listens to nobody else: the
/// name's owner must be the shell itself, and on Wayland the compositor of our session. Main
/// thread.
class ShellLink {
  public:
    static constexpr auto service = "app.calmora.Calmora.Shell";
    static constexpr auto path = "/app/calmora/Calmora/Shell";
    static constexpr auto interfaceName = "app.calmora.Calmora.Shell1";

    enum class State {
        /// The bus or the extension has not answered yet.
        pending,
        /// There is no extension, or it refuses.
        absent,
        attached,
    };

    /// `socket` is where the compositor listens; empty on X11. Nothing is waited for longer than
    /// `timeout`; after a call without answer, the shell is given that time ten times over.
    explicit ShellLink(const QDBusConnection& connection, std::string socket = {},
                       std::chrono::milliseconds timeout = std::chrono::seconds(1));
    ShellLink(const ShellLink&) = delete;
    ShellLink& operator=(const ShellLink&) = delete;

    [[nodiscard]] State state() const { return state_; }

    [[nodiscard]] bool isAttached() const { return state_ == State::attached; }

    /// Whether the shell is attached and has answered the last call.
    [[nodiscard]] bool isAnswering() const { return isAttached() && !pause_.isActive(); }

    /// As given to the constructor.
    [[nodiscard]] const std::string& socket() const { return socket_; }

    /// The shell's process; absent where the extension is not attached.
    [[nodiscard]] std::optional<ProcessId> process() const;

    /// Called after each change of state(), from the main loop.
    [[nodiscard]] Subscription onStateChanged(std::function<void()> handler);

    /// The windows and the focused one as last told; empty and 0 while not attached.
    [[nodiscard]] const std::vector<ShellWindow>& windows();
    [[nodiscard]] std::uint64_t focus();

    /// Asks for both anew. False when there was no answer.
    bool readWindows();

    /// Called when windows() or focus() may have changed, also from within calls of this object.
    [[nodiscard]] Subscription onWindowsChanged(std::function<void()> handler);

    /// Asks a Wayland window to close; whether the shell did.
    bool close(std::uint64_t window);

    /// Brings a window to the front; false if there is none.
    bool raise(std::uint64_t window);

    /// What the icon shows, also in the future: the file of a picture that the shell recolours.
    void setIcon(const QString& file, const QString& title);
    void setMenu(const QList<ShellMenuItem>& items);

    /// Which X11 window our popover is, also in the future.
    void setPopover(std::uint64_t window);

    /// Grabs these keys in place of all others. A number for each, 0 for one that was refused;
    /// absent without an answer.
    [[nodiscard]] std::optional<QList<uint>> grabKeys(const QStringList& accelerators);

    /// Where the icon was last; absent while not attached.
    [[nodiscard]] std::optional<Rect> icon() const { return icon_; }

    [[nodiscard]] Subscription onIconActivated(std::function<void(uint button)> handler);
    [[nodiscard]] Subscription onMenuOpened(std::function<void(bool)> handler);
    [[nodiscard]] Subscription onMenuActivated(std::function<void(uint id)> handler);
    [[nodiscard]] Subscription onKeyPressed(std::function<void(uint id)> handler);
    /// A press outside of our popover and the icon, which moves no focus.
    [[nodiscard]] Subscription onPressedOutside(std::function<void()> handler);

  private:
    void ownerChanged(const QString& owner);
    void checkOwner(const QString& owner);
    void attach(const QString& owner);
    void attached(const QVariantMap& values);
    void setState(State state);
    void listen(const char* name, std::function<void(const QDBusMessage&)> handler);
    void listenToShell();
    /// Handles the signals that have arrived, without running the loop.
    void handleSignals();
    [[nodiscard]] QDBusMessage message(const char* method, const QVariantList& arguments) const;
    /// The answer, which is an error when there is none.
    QDBusMessage ask(const char* method, const QVariantList& arguments);
    void tell(const char* method, const QVariantList& arguments);
    void setWindows(std::vector<ShellWindow> windows, std::uint64_t focus);
    [[nodiscard]] QVariantMap iconOptions() const;

    QDBusConnection connection_;
    std::string socket_;
    std::chrono::milliseconds timeout_;
    State state_ = State::pending;
    /// The extension's unique name; empty while there is none that we trust.
    QString shell_;
    ProcessId process_ = 0;
    std::uint64_t ownerChanges_ = 0;
    std::vector<ShellWindow> windows_;
    std::uint64_t focus_ = 0;
    std::optional<Rect> icon_;
    QString iconFile_;
    QString iconTitle_;
    std::uint64_t popover_ = 0;
    QList<ShellMenuItem> menu_;
    QDBusServiceWatcher watcher_;
    /// Active after a call that got no answer.
    QTimer pause_;
    std::list<BusSignal> signals_;

    Signal<> stateChanged_;
    Signal<> windowsChanged_;
    Signal<uint> iconActivated_;
    Signal<bool> menuOpened_;
    Signal<uint> menuActivated_;
    Signal<uint> keyPressed_;
    Signal<> pressedOutside_;
};

/// The link to the shell of this session; null where it is not GNOME's, or there is no bus.
[[nodiscard]] std::unique_ptr<ShellLink> makeShellLink(const QDBusConnection& connection);

} // namespace calmora
