// SPDX-License-Identifier: MIT
#include "platform/qt/window/PixelGrid.h"

namespace calmora {
namespace {

TEST(PixelGrid, AlignsRegionsToDevicePixels) {
    for (const auto& [scale, step] :
         {std::pair{1.0, 1}, {2.0, 1}, {1.5, 2}, {1.25, 4}, {100.0 / 96, 24}, {1.04, 25}}) {
        EXPECT_EQ(wholePixelStep(scale), step) << scale;
    }
    EXPECT_EQ(wholePixelStep(1.003), std::nullopt);
    const QRect whole(0, 0, 39, 53);
    const QRegion two = QRegion(5, 9, 2, 3) + QRect(36, 50, 3, 3);
    EXPECT_EQ(alignedRegion(two, 4, whole), QRegion(4, 8, 4, 4) + QRect(36, 48, 3, 5));
    EXPECT_EQ(alignedRegion(alignedRegion(two, 4, whole), 4, whole), alignedRegion(two, 4, whole));
}

} // namespace
} // namespace calmora
