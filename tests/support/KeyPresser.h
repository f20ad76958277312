#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <xcb/xcb.h>

namespace calmora {

/// Presses and releases keys of a display as a hand does, by X keycode; it looks at no layout and
/// touches no other key. Releases at its end what it still holds.
/// Source: XTEST extension, FakeInput.
class KeyPresser {
  public:
    explicit KeyPresser(const std::string& display);
    KeyPresser(const KeyPresser&) = delete;
    KeyPresser& operator=(const KeyPresser&) = delete;
    ~KeyPresser();

    /// Each returns when the server has taken the keys.
    void press(std::initializer_list<std::uint8_t> keys);
    void release(std::initializer_list<std::uint8_t> keys);

    /// Presses the keys in order and releases them in the opposite order.
    void tap(std::initializer_list<std::uint8_t> keys);

    /// Presses or releases a pointer button where the pointer is.
    void button(std::uint8_t number, bool isDown);

    /// Moves the pointer there.
    void move(int x, int y);

    /// A connection that belongs to another client than the one under test.
    [[nodiscard]] xcb_connection_t* connection() const { return connection_; }

    [[nodiscard]] xcb_window_t root() const;

    /// Waits until the server has done what was asked.
    void sync();

  private:
    void fake(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0);

    xcb_connection_t* connection_;
    bool isHeld_[256] = {};
};

} // namespace calmora
