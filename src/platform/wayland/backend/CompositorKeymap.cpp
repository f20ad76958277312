// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/CompositorKeymap.h"

#include "platform/wayland/backend/CompositorConnection.h"

#include <chrono>
#include <string>
#include <utility>

#include <unistd.h>

namespace calmora {
namespace {

constexpr std::chrono::milliseconds answerTime{200};

struct Answer {
    xkb_context* context = nullptr;
    bool hasKeyboard = false;
    XkbKeymap keymap;

    void take(std::uint32_t format, const FileDescriptor& file, std::uint32_t size) {
        if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1) {
            keymap = keymapIn(file, size, context);
        }
    }
};

} // namespace

XkbKeymap keymapIn(const FileDescriptor& file, std::size_t size, xkb_context* context) {
    constexpr std::size_t longestKeymap = 1 << 20;
    if (size == 0 || size > longestKeymap) {
        return nullptr;
    }
    // Not mapped: a file that is shorter than it says would end the program.
    std::string text(size, '\0');
    if (::pread(file.get(), text.data(), size, 0) != static_cast<ssize_t>(size)) {
        return nullptr;
    }
    return XkbKeymap(xkb_keymap_new_from_buffer(
        context, text.data(), size - 1, XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

XkbKeymap compositorKeymap(xkb_context* context) {
    CompositorConnection compositor;
    const auto seat = compositor.bindFirst<wl_seat>(wl_seat_interface, 1);
    if (!seat || !context) {
        return nullptr;
    }
    Answer answer{.context = context, .hasKeyboard = false, .keymap = nullptr};
    wl_seat_listener seatListener{};
    seatListener.capabilities = [](void* data, wl_seat*, std::uint32_t capabilities) {
        static_cast<Answer*>(data)->hasKeyboard = (capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0;
    };
    wl_seat_add_listener(seat.get(), &seatListener, &answer);
    if (!compositor.roundTrip(answerTime) || !answer.hasKeyboard) {
        return nullptr;
    }
    wl_keyboard_listener keyboardListener{};
    keyboardListener.keymap = [](void* data, wl_keyboard*, std::uint32_t format, int descriptor,
                                 std::uint32_t size) {
        static_cast<Answer*>(data)->take(format, FileDescriptor(descriptor), size);
    };
    const WaylandProxy<wl_keyboard> keyboard(wl_seat_get_keyboard(seat.get()));
    wl_keyboard_add_listener(keyboard.get(), &keyboardListener, &answer);
    compositor.roundTrip(answerTime);
    return std::move(answer.keymap);
}

} // namespace calmora
