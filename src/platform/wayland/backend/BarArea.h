// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geometry.h"

#include <optional>

namespace calmora {

/// What bars leave of an output of size `whole`, if they leave `usable` of it. Where the bars are
/// is not told: a bar is taken to be where the pointer is, else both edges are avoided.
[[nodiscard]] Rect areaBesideBars(Size whole, Size usable, std::optional<Point> pointer);

/// `usable`, less a panel around the icon whose middle is `icon`, where the compositor counts none
/// there: one as thick as twice the icon's distance from the edge.
[[nodiscard]] Size usableBesideIcon(Size whole, Size usable, Point icon);

/// Whether a place of the output lies in a bar.
[[nodiscard]] bool isInBar(Point place, const Rect& area);

} // namespace calmora
