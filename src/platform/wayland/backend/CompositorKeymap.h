// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keyboard/AsciiKeymap.h"
#include "support/FileDescriptor.h"

#include <cstddef>

namespace calmora {

/// The keymap in the first `size` bytes of a file, of which the last one is a zero; null for one
/// that is longer than 1 MiB, shorter than it says, or no keymap.
[[nodiscard]] XkbKeymap keymapIn(const FileDescriptor& file, std::size_t size,
                                 xkb_context* context);

/// The keymap of the keyboard of the compositor that the environment names; null when there is no
/// compositor, no keyboard, or no answer in time. Connects for it, for a few milliseconds.
/// Source: wl_keyboard, keymap.
[[nodiscard]] XkbKeymap compositorKeymap(xkb_context* context);

} // namespace calmora
