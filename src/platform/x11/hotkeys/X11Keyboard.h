#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/hotkeys/X11Modifiers.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <xcb/xinput.h>

namespace calmora {

class EventPoll;

/// The X server's keyboard on a connection of its own, so that its selections (XKB, raw keys) do
/// not affect the toolkit's. After the connection breaks nothing happens any more. Main thread.
class X11Keyboard {
  public:
    /// Connects to `display`; empty means that of the environment. `poll` must outlive the
    /// keyboard.
    explicit X11Keyboard(EventPoll& poll, const std::string& display = {});
    X11Keyboard(const X11Keyboard&) = delete;
    X11Keyboard& operator=(const X11Keyboard&) = delete;
    ~X11Keyboard();

    /// Whether the server answers and has XKB and XInput 2.1.
    [[nodiscard]] bool isAlive() const;

    [[nodiscard]] const X11Connection& connection() const;

    /// The modifiers as they are mapped now.
    [[nodiscard]] const X11Modifiers& modifiers() const;

    /// The keys that set each modifier bit now.
    [[nodiscard]] const X11ModifierKeys& modifierKeys() const;

    /// The keys that are down at this moment. One round trip.
    [[nodiscard]] std::set<X11KeyCode> keysDown();

    /// Sends queued requests, and handles events that came with replies from the next dispatch.
    void flush();

    /// Selects raw key events.
    void selectRawKeys(bool presses, bool releases);

    /// Reports the key presses that wait as too late, after a time in which no key may act.
    void discardKeyPresses();

    /// A grabbed key was pressed. If too late it must not act, not even when it repeats.
    [[nodiscard]] Subscription
    onKeyPress(std::function<void(const xcb_key_press_event_t&, bool isTooLate)> slot);

    /// A key went down or up anywhere, while such events are selected.
    [[nodiscard]] Subscription onRawKey(std::function<void(X11KeyCode, bool isDown)> slot);

    /// The modifiers are mapped differently now.
    [[nodiscard]] Subscription onModifiersChanged(std::function<void()> slot);

    /// The keys write something else now: another layout, or another one of several is active.
    [[nodiscard]] Subscription onLayoutChanged(std::function<void()> slot);

    /// The connection has broken.
    [[nodiscard]] Subscription onClosed(std::function<void()> slot);

  private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace calmora
