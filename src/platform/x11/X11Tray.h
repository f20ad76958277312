// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"

#include <span>
#include <vector>

namespace calmora {

/// The windows embedded in the tray whose selection `owner` holds: those of other clients inside
/// its own, also inside `docks`. One round trip for each level of windows. Source: freedesktop
/// System Tray Protocol, XEMBED.
[[nodiscard]] std::vector<xcb_window_t>
trayIcons(const X11Connection& connection, xcb_window_t owner, std::span<const xcb_window_t> docks);

} // namespace calmora
