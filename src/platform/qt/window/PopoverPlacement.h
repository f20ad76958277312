// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geometry.h"

#include <optional>
#include <span>

namespace calmora {

/// One screen: all of it, and the part without panels.
struct ScreenArea {
    Rect geometry;
    Rect available;
};

/// The popover's place: beside the icon, away from its panel, within the available area of the
/// icon's screen, with a gap to its edges and never larger. Without an icon: the corner of the
/// first screen where its panel has the status icons. `screens` is not empty.
[[nodiscard]] Rect placePopover(Size size, const std::optional<Rect>& icon,
                                std::span<const ScreenArea> screens);

} // namespace calmora
