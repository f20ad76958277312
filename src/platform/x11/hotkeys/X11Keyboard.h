// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/hotkeys/X11ModifierMap.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <utility>
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

    /// Whether the server answers and has XKB and XInput 2.1.
    [[nodiscard]] bool isAlive() const { return isUsable_ && connection_.isAlive(); }

    [[nodiscard]] const X11Connection& connection() const { return connection_; }

    /// The modifiers as they are mapped now.
    [[nodiscard]] const X11Modifiers& modifiers() const { return map_.modifiers; }

    /// The keys that set each modifier bit now.
    [[nodiscard]] const X11ModifierKeys& modifierKeys() const { return map_.keys; }

    /// The keys that are down at this moment. One round trip.
    [[nodiscard]] std::set<X11KeyCode> keysDown();

    /// Sends queued requests, and handles events that came with replies from the next dispatch.
    void flush();

    /// Selects raw key events.
    void selectRawKeys(bool presses, bool releases);

    /// Reports the key presses that wait as too late, after a time in which no key may act.
    void discardKeyPresses();

    // Handlers must not destroy the keyboard.

    /// A grabbed key was pressed. If too late it must not act, not even when it repeats.
    [[nodiscard]] Subscription
    onKeyPress(std::function<void(const xcb_key_press_event_t&, bool isTooLate)> slot) {
        return keyPress_.connect(std::move(slot));
    }

    /// A key went down or up anywhere, while such events are selected.
    [[nodiscard]] Subscription onRawKey(std::function<void(X11KeyCode, bool isDown)> slot) {
        return rawKey_.connect(std::move(slot));
    }

    /// The modifiers are mapped differently now.
    [[nodiscard]] Subscription onModifiersChanged(std::function<void()> slot) {
        return modifiersChanged_.connect(std::move(slot));
    }

    /// The keys write something else now: another layout, or another one of several is active.
    [[nodiscard]] Subscription onLayoutChanged(std::function<void()> slot) {
        return layoutChanged_.connect(std::move(slot));
    }

    /// The connection has broken.
    [[nodiscard]] Subscription onClosed(std::function<void()> slot) {
        return closed_.connect(std::move(slot));
    }

  private:
    [[nodiscard]] bool setUp();
    void selectXkbEvents() const;
    void drain(bool dropsPresses = false);
    void sort(const xcb_generic_event_t& event, bool dropsPresses);
    void sortRawKey(const xcb_ge_generic_event_t& event, bool dropsPresses) const;
    void sortXkb(const xcb_generic_event_t& event);
    void refresh();

    EventPoll& poll_;
    X11Connection connection_;
    std::uint8_t xkbEvent_ = 0;
    std::uint8_t xinputOpcode_ = 0;
    X11ModifierMap map_;
    /// Set up and not broken.
    bool isUsable_ = false;
    bool isStale_ = false;
    std::uint32_t rawMask_ = 0;
    Signal<const xcb_key_press_event_t&, bool> keyPress_;
    Signal<X11KeyCode, bool> rawKey_;
    Signal<> modifiersChanged_;
    Signal<> layoutChanged_;
    Signal<> closed_;
    Subscription watch_;
    Subscription drainLater_;
};

} // namespace calmora
