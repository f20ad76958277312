#pragma once

#include "platform/Geometry.h"

#include <optional>
#include <span>

namespace calmora {

/// One screen: all of it, and what panels leave of it.
struct ScreenArea {
    Rect geometry;
    Rect available;
};

/// Where the popover stands: beside the icon, away from the panel that holds it, inside what the
/// panels leave of the icon's screen. Without an icon: the corner of the first screen where the
/// panel keeps its status icons. Never larger than that area. `screens` is not empty.
[[nodiscard]] Rect placePopover(Size size, const std::optional<Rect>& icon,
                                std::span<const ScreenArea> screens);

} // namespace calmora
