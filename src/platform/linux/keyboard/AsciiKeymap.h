// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/keyboard/KeyCodes.h"
#include "support/Owned.h"

#include <optional>
#include <string>
#include <xkbcommon/xkbcommon.h>

namespace calmora {

using XkbContext = Owned<xkb_context, xkb_context_unref>;
using XkbKeymap = Owned<xkb_keymap, xkb_keymap_unref>;

/// A context without logging; null without memory.
[[nodiscard]] XkbContext makeXkbContext();

/// The keymap of a US keyboard; null without a context.
[[nodiscard]] XkbKeymap americanKeymap(xkb_context* context);

/// The layout of `keymap` that writes ASCII, with at least 20 of the letters a to z on its lowest
/// level: `active` if it does, else the first one; absent if there is none.
[[nodiscard]] std::optional<xkb_layout_index_t> asciiLayout(xkb_keymap& keymap,
                                                            xkb_layout_index_t active);

/// The UTF-8 text on a level of a key: 0, or 1 with Shift; a dead key's spacing form. Absent
/// without text.
[[nodiscard]] std::optional<std::string> characterOf(xkb_keymap& keymap, xkb_layout_index_t layout,
                                                     X11KeyCode key, xkb_level_index_t level);

/// Whether the key waits for a letter on that level.
[[nodiscard]] bool isDead(xkb_keymap& keymap, xkb_layout_index_t layout, X11KeyCode key,
                          xkb_level_index_t level);

} // namespace calmora
