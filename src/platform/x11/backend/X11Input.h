// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/hotkeys/X11Modifiers.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <QObject>
#include <QSocketNotifier>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <xcb/xcb.h>

namespace calmora {

/// What the user does with keyboard and mouse: which window has the keyboard, which modifiers are
/// down, raw button presses. On a connection of its own, because its events must arrive while an
/// alert is open and those of hot keys must not, and Qt's selections are Qt's. A connection that
/// breaks answers with nothing. Main thread.
class X11Input {
  public:
    /// Connects to the display of the running QGuiApplication.
    X11Input();
    X11Input(const X11Input&) = delete;
    X11Input& operator=(const X11Input&) = delete;

    [[nodiscard]] xcb_connection_t* connection() const { return connection_.get(); }

    /// The window with the focus; XCB_NONE or XCB_INPUT_FOCUS_POINTER_ROOT where none has it.
    [[nodiscard]] xcb_window_t focusedWindow() const;

    /// Gives the focus to a window that is on screen.
    void grabFocus(xcb_window_t window) const;

    /// Passes the focus from one window to another, if the first still has it; to whatever the
    /// pointer is over if the other cannot take it. `time` is when the user asked for it: a
    /// request with a later time wins.
    void passFocus(xcb_window_t from, xcb_window_t to, xcb_timestamp_t time) const;

    /// Whether the window exists and can be seen on some desktop.
    [[nodiscard]] bool isViewable(xcb_window_t window) const;

    /// The child of the root that holds `window`: the frame that a window manager put around it.
    [[nodiscard]] xcb_window_t topLevel(xcb_window_t window) const;

    /// The child of the root under the pointer; XCB_NONE on the bare root.
    [[nodiscard]] xcb_window_t topLevelUnderPointer() const;

    /// Whether Qt made this window for us.
    [[nodiscard]] bool isOurs(xcb_window_t window) const;

    /// Whether a compositing manager runs (ICCCM manager selection _NET_WM_CM_Sn).
    [[nodiscard]] bool isComposited() const;

    /// The modifiers that are down. Option is the modifier that carries Alt_L, Command the one
    /// that carries Super_L; AltGr is neither.
    [[nodiscard]] std::optional<ModifierFlags> modifiers();

    /// The server's current time in milliseconds; it wraps around. One round trip.
    [[nodiscard]] std::optional<xcb_timestamp_t> serverTime();

    /// Selects, until the token ends, windows that appear and vanish (SubstructureNotify of the
    /// root) and raw button presses all over the screen. Tokens may overlap. Source: XInput 2.1,
    /// RawButtonPress.
    [[nodiscard]] Subscription watchScreen();

    /// A mouse button that went down somewhere.
    struct RawPress {
        std::uint32_t button = 0;
        xcb_timestamp_t time = XCB_CURRENT_TIME;
    };

    /// The raw press in an event that watchScreen() selected; absent in every other event.
    [[nodiscard]] std::optional<RawPress> rawPress(const xcb_generic_event_t& event) const;

    /// Handles the events that arrived with replies.
    void dispatchQueued();

    /// Called with every event of this connection.
    [[nodiscard]] Subscription onEvent(std::function<void(const xcb_generic_event_t&)> handler) {
        return event_.connect(std::move(handler));
    }

  private:
    void dispatch();
    void handle(const xcb_generic_event_t& event);
    void setFocus(xcb_window_t window, xcb_timestamp_t time) const;
    void touchClock(xcb_window_t window) const;
    void selectScreenEvents() const;

    X11Connection connection_;
    /// Never shown; a change of its property tells the time.
    xcb_window_t clockWindow_ = XCB_NONE;
    std::uint32_t qtResourceBase_ = 0;
    std::uint32_t qtResourceMask_ = 0;
    /// The XInput extension's number; 0 where the server has none.
    std::uint8_t inputExtension_ = 0;
    int screenWatches_ = 0;
    /// Absent until they are read, and after a change.
    std::optional<X11Modifiers> modifiers_;
    Signal<const xcb_generic_event_t&> event_;
    QObject context_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace calmora
