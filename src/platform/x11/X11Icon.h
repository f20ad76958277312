// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"
#include "platform/x11/X11Connection.h"

#include <cstdint>
#include <memory>
#include <span>

namespace calmora {

/// The best picture in a _NET_WM_ICON property for a square of `wanted` pixels: the smallest that
/// fills it, else the largest. Scaled down if much larger. Null when none is complete.
/// Source: EWMH, _NET_WM_ICON.
[[nodiscard]] std::shared_ptr<const ImagePixels> chooseIcon(std::span<const std::uint32_t> property,
                                                            int wanted);

/// The icon that a window keeps as a pixmap of the server, with its mask; a bitmap becomes black on
/// transparent. Null when there is none, it is too large, or its format is unusual. A few round
/// trips. Source: ICCCM 4.1.2.4, WM_HINTS.
[[nodiscard]] std::shared_ptr<const ImagePixels> hintsIcon(const X11Connection& connection,
                                                           xcb_window_t window);

} // namespace calmora
