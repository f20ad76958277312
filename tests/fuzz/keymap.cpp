// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/CompositorKeymap.h"

#include <cstdint>

#include <sys/mman.h>
#include <unistd.h>

using namespace calmora;

/// The keymap that a compositor gives, in a file that may be shorter than it says.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const XkbContext context = makeXkbContext();
    static const FileDescriptor file(memfd_create("keymap", MFD_CLOEXEC));
    if (ftruncate(file.get(), 0) != 0 ||
        pwrite(file.get(), data, size, 0) != static_cast<ssize_t>(size)) {
        return 0;
    }
    static_cast<void>(keymapIn(file, size + 4096, context.get()));
    const XkbKeymap keymap = keymapIn(file, size, context.get());
    if (const auto layout = keymap ? asciiLayout(*keymap, 0) : std::nullopt) {
        for (const X11KeyCode key : {9, 24, 38, 255}) {
            static_cast<void>(characterOf(*keymap, *layout, key, 1));
            static_cast<void>(isDead(*keymap, *layout, key, 0));
        }
    }
    return 0;
}
