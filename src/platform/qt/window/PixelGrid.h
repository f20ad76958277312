// SPDX-License-Identifier: MIT
#pragma once

#include <QRegion>

#include <optional>

namespace calmora {

/// The distance, in device-independent pixels, of places that lie on whole device pixels at a
/// scale: 1 at 1 and 2, 2 at 1.5, 4 at 1.25. Absent where there are none near.
[[nodiscard]] std::optional<int> wholePixelStep(double scale);

/// The smallest region around `region`, within `whole`, whose edges are multiples of `step` or
/// edges of `whole`.
[[nodiscard]] QRegion alignedRegion(const QRegion& region, int step, const QRect& whole);

} // namespace calmora
