#pragma once

#include "platform/wayland/backend/CompositorConnection.h"

#include <cstdint>
#include <wlr-virtual-pointer-unstable-v1-client.h>

namespace calmora {

/// A pointer of our own on a compositor that lets any program have one.
class WaylandHands {
  public:
    static constexpr std::uint32_t left = 0x110;
    static constexpr std::uint32_t right = 0x111;

    WaylandHands(int width, int height) : width_(width), height_(height) {
        pointer_.reset(
            zwlr_virtual_pointer_manager_v1_create_virtual_pointer(manager_.get(), nullptr));
        connection_.roundTrip(timeout);
    }

    /// In two steps: with the first sway notices that a surface has gone from under the pointer.
    void move(int x, int y) {
        for (const int step : {x - 1, x}) {
            zwlr_virtual_pointer_v1_motion_absolute(
                pointer_.get(), ++time_, static_cast<std::uint32_t>(step),
                static_cast<std::uint32_t>(y), static_cast<std::uint32_t>(width_),
                static_cast<std::uint32_t>(height_));
            finish();
        }
    }

    void click(std::uint32_t button = left) {
        press(button);
        release(button);
    }

    void press(std::uint32_t button = left) { send(button, WL_POINTER_BUTTON_STATE_PRESSED); }

    void release(std::uint32_t button = left) { send(button, WL_POINTER_BUTTON_STATE_RELEASED); }

  private:
    static constexpr std::chrono::seconds timeout{5};

    void send(std::uint32_t button, std::uint32_t state) {
        zwlr_virtual_pointer_v1_button(pointer_.get(), ++time_, button, state);
        finish();
    }

    void finish() {
        zwlr_virtual_pointer_v1_frame(pointer_.get());
        connection_.roundTrip(timeout);
    }

    int width_;
    int height_;
    /// Milliseconds of a clock of its own.
    std::uint32_t time_ = 0;
    CompositorConnection connection_;
    WaylandProxy<zwlr_virtual_pointer_manager_v1> manager_ =
        connection_.bindFirst<zwlr_virtual_pointer_manager_v1>(
            zwlr_virtual_pointer_manager_v1_interface, 1);
    WaylandProxy<zwlr_virtual_pointer_v1> pointer_;
};

} // namespace calmora
