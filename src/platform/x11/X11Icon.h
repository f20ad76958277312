#pragma once

#include "platform/Image.h"

#include <cstdint>
#include <memory>
#include <span>

namespace calmora {

/// The best of the pictures in a _NET_WM_ICON property for a square of `wanted` pixels: the
/// smallest that fills it, else the largest there is. A picture much larger than needed is scaled
/// down. Null when no picture is complete. Source: EWMH, _NET_WM_ICON.
[[nodiscard]] std::shared_ptr<const ImagePixels> chooseIcon(std::span<const std::uint32_t> property,
                                                            int wanted);

} // namespace calmora
