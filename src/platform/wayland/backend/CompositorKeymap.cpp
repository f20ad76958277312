// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/CompositorKeymap.h"

#include "platform/wayland/backend/CompositorConnection.h"
#include "support/FileDescriptor.h"

#include <chrono>
#include <sys/mman.h>
#include <utility>

namespace calmora {
namespace {

constexpr std::chrono::milliseconds answerTime{200};

struct Answer {
    xkb_context* context = nullptr;
    bool hasKeyboard = false;
    XkbKeymap keymap;

    void take(std::uint32_t format, const FileDescriptor& file, std::uint32_t size) {
        void* text = format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 && size > 0
                         ? ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.get(), 0)
                         : MAP_FAILED;
        if (text != MAP_FAILED) {
            // The size counts the zero at the end.
            keymap.reset(xkb_keymap_new_from_buffer(context, static_cast<const char*>(text),
                                                    size - 1, XKB_KEYMAP_FORMAT_TEXT_V1,
                                                    XKB_KEYMAP_COMPILE_NO_FLAGS));
            ::munmap(text, size);
        }
    }
};

} // namespace

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
