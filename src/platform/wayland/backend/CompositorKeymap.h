// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keyboard/AsciiKeymap.h"

namespace calmora {

/// The keymap of the keyboard of the compositor that the environment names; null when there is no
/// compositor, no keyboard, or no answer in time. Connects for it, for a few milliseconds.
/// Source: wl_keyboard, keymap.
[[nodiscard]] XkbKeymap compositorKeymap(xkb_context* context);

} // namespace calmora
