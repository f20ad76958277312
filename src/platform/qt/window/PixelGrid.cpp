// SPDX-License-Identifier: MIT
#include "platform/qt/window/PixelGrid.h"

#include <cmath>

namespace calmora {
namespace {

/// The denominators of all usual scales: dots per inch by 96, and Wayland's by 120.
constexpr int largestStep = 120;
constexpr double tolerance = 0.001;

/// The next multiple of `step` at or below `value`, which is not negative.
int multipleBelow(int value, int step) {
    return value / step * step;
}

} // namespace

std::optional<int> wholePixelStep(double scale) {
    for (int step = 1; step <= largestStep; ++step) {
        if (std::abs(step * scale - std::round(step * scale)) < tolerance) {
            return step;
        }
    }
    return std::nullopt;
}

QRegion alignedRegion(const QRegion& region, int step, const QRect& whole) {
    QRegion aligned;
    for (const QRect& rect : region& whole) {
        const QPoint first(multipleBelow(rect.left(), step), multipleBelow(rect.top(), step));
        const QPoint last(multipleBelow(rect.right(), step) + step - 1,
                          multipleBelow(rect.bottom(), step) + step - 1);
        aligned += QRect(first, last) & whole;
    }
    return aligned;
}

} // namespace calmora
