#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <xcb/xcb.h>

namespace calmora {

/// Runs Qt's loop until the condition holds, at most ten seconds.
bool loopUntil(const std::function<bool()>& condition);

/// Runs Qt's loop for a while, to see that nothing happens.
void loopFor(std::chrono::milliseconds duration);

/// The user's hands and another program's windows, on a connection of their own.
/// Source: XTEST extension, FakeInput.
class Hands {
  public:
    Hands();
    Hands(const Hands&) = delete;
    Hands& operator=(const Hands&) = delete;
    ~Hands();

    void move(int x, int y);
    void press(int button = 1);
    void release(int button = 1);

    /// Moves there, presses and releases.
    void click(int x, int y);

    void keyDown(std::uint32_t keysym);
    void keyUp(std::uint32_t keysym);

    /// A new window of another program, on screen.
    xcb_window_t openWindow(int x, int y, const std::string& title);

    /// A window that no window manager touches, such as an icon of a panel.
    xcb_window_t openIcon(int x, int y, int side);

    void closeWindow(xcb_window_t window);

    xcb_window_t keyboardOwner();

    /// The uppermost window that can be seen.
    [[nodiscard]] xcb_window_t topmost();

    /// Waits, without turning Qt's loop, until the server has done everything.
    void sync();

  private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    void fake(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0);
    [[nodiscard]] xcb_keycode_t keycode(std::uint32_t keysym);

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    const xcb_screen_t* screen_ = nullptr;
};

} // namespace calmora
