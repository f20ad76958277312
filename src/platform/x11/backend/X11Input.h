#pragma once

#include "platform/EventMonitor.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <QObject>
#include <QSocketNotifier>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <xcb/xcb.h>

namespace calmora {

/// Frees what xcb hands out.
struct XcbFree {
    void operator()(void* memory) const { std::free(memory); }
};

/// A reply or an event of the X server; null where there is none.
template <typename T>
using XcbReply = std::unique_ptr<T, XcbFree>;

/// Ends a connection to the X server.
struct XcbDisconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

/// A connection of our own for what the user's hands do: which window has the keyboard, which
/// modifiers are down, raw button presses. Beside Qt's connection, so that event selections and
/// errors stay apart. A connection that breaks answers with nothing. Main thread.
class X11Input {
  public:
    /// Connects to the display of the running QGuiApplication.
    X11Input();
    X11Input(const X11Input&) = delete;
    X11Input& operator=(const X11Input&) = delete;

    [[nodiscard]] xcb_connection_t* connection() const { return connection_.get(); }

    [[nodiscard]] xcb_window_t root() const { return root_; }

    /// The window that has the keyboard; XCB_NONE or XCB_INPUT_FOCUS_POINTER_ROOT where none has.
    [[nodiscard]] xcb_window_t keyboardOwner() const;

    /// Gives the keyboard to a window that is on screen, or to whatever the pointer is over.
    void giveKeyboard(xcb_window_t window) const;

    /// Passes the keyboard from one window to another, if the first still has it. `time` is when
    /// the user made it so: whoever acts upon a later event wins.
    void passKeyboard(xcb_window_t from, xcb_window_t to, xcb_timestamp_t time) const;

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

    /// The server's time of now, in milliseconds; it wraps around.
    [[nodiscard]] std::optional<xcb_timestamp_t> serverTime();

    /// Selects, until the token ends, what happens all over the screen: windows that appear and
    /// vanish (SubstructureNotify of the root), and raw button presses, which reach every client
    /// that asks. Tokens may overlap.
    /// Source: XInput 2.1, RawButtonPress.
    [[nodiscard]] Subscription watchScreen();

    /// A mouse button that went down somewhere.
    struct RawPress {
        std::uint32_t button = 0;
        xcb_timestamp_t time = XCB_CURRENT_TIME;
    };

    /// The raw press that watchScreen() selected; absent for every other event.
    [[nodiscard]] std::optional<RawPress> rawPress(const xcb_generic_event_t& event) const;

    /// Tells the events that have arrived along with replies.
    void dispatchQueued();

    /// Tells every event of this connection.
    [[nodiscard]] Subscription onEvent(std::function<void(const xcb_generic_event_t&)> handler) {
        return event_.connect(std::move(handler));
    }

  private:
    void dispatch();
    void handle(const xcb_generic_event_t& event);
    void readModifierMap();
    void setKeyboardOwner(xcb_window_t window, xcb_timestamp_t time) const;
    void touchClock(xcb_window_t window) const;
    void selectScreenEvents() const;

    struct ModifierMasks {
        std::uint16_t option = 0;
        std::uint16_t command = 0;
    };

    std::unique_ptr<xcb_connection_t, XcbDisconnect> connection_;
    xcb_window_t root_ = XCB_NONE;
    xcb_atom_t compositor_ = XCB_NONE;
    /// A property without content whose changes tell the time.
    xcb_atom_t clockProperty_ = XCB_NONE;
    /// Never shown.
    xcb_window_t clockWindow_ = XCB_NONE;
    std::uint32_t qtResourceBase_ = 0;
    std::uint32_t qtResourceMask_ = 0;
    /// The XInput extension's number; 0 where the server has none.
    std::uint8_t inputExtension_ = 0;
    int screenWatches_ = 0;
    std::optional<ModifierMasks> masks_;
    Signal<const xcb_generic_event_t&> event_;
    QObject context_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace calmora
