#pragma once

#include "support/KeyPresser.h"

#include <chrono>
#include <cstdlib>
#include <functional>
#include <string>
#include <xcb/xcb.h>

namespace calmora {

/// Runs Qt's loop until the condition holds, at most ten seconds.
bool loopUntil(const std::function<bool()>& condition);

/// Runs Qt's loop for a while, to see that nothing happens.
void loopFor(std::chrono::milliseconds duration);

/// The user's hands and another program's windows, on a connection of their own.
class Hands : public KeyPresser {
  public:
    Hands() : KeyPresser(std::getenv("DISPLAY")) {}

    /// Moves there, presses and releases.
    void click(int x, int y);

    /// A new window of another program, on screen.
    xcb_window_t openWindow(int x, int y, const std::string& title);

    /// A window that no window manager touches, such as an icon of a panel.
    xcb_window_t openIcon(int x, int y, int side);

    void closeWindow(xcb_window_t window);

    xcb_window_t keyboardOwner();

    /// The uppermost window that can be seen.
    [[nodiscard]] xcb_window_t topmost();
};

} // namespace calmora
