// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"

#include <cstdint>
#include <memory>
#include <span>

namespace calmora {

/// The best picture in a _NET_WM_ICON property for a square of `wanted` pixels: the smallest that
/// fills it, else the largest. Scaled down if much larger. Null when none is complete.
/// Source: EWMH, _NET_WM_ICON.
[[nodiscard]] std::shared_ptr<const ImagePixels> chooseIcon(std::span<const std::uint32_t> property,
                                                            int wanted);

} // namespace calmora
