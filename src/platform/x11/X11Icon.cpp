// SPDX-License-Identifier: MIT
#include "platform/x11/X11Icon.h"

#include <algorithm>

namespace calmora {

namespace {

constexpr std::uint32_t largest = 4096;

struct Picture {
    int width = 0;
    int height = 0;
    std::span<const std::uint32_t> argb;

    [[nodiscard]] int size() const { return std::min(width, height); }
};

/// Whether `a` suits better than `b`.
bool suitsBetter(const Picture& a, const Picture& b, int wanted) {
    const bool aFills = a.size() >= wanted;
    const bool bFills = b.size() >= wanted;
    return aFills == bFills ? (aFills ? a.size() < b.size() : a.size() > b.size()) : aFills;
}

/// Averages squares of `factor` by `factor` pixels, weighing colours by their opacity.
ImagePixels scaledDown(const Picture& picture, int factor) {
    ImagePixels result{picture.width / factor, picture.height / factor, {}};
    result.argb.reserve(static_cast<std::size_t>(result.width) *
                        static_cast<std::size_t>(result.height));
    for (int y = 0; y < result.height; ++y) {
        for (int x = 0; x < result.width; ++x) {
            std::uint64_t alpha = 0;
            std::uint64_t red = 0;
            std::uint64_t green = 0;
            std::uint64_t blue = 0;
            for (int dy = 0; dy < factor; ++dy) {
                for (int dx = 0; dx < factor; ++dx) {
                    const int at = (y * factor + dy) * picture.width + x * factor + dx;
                    const std::uint32_t pixel = picture.argb[static_cast<std::size_t>(at)];
                    const std::uint64_t opacity = pixel >> 24U;
                    alpha += opacity;
                    red += opacity * ((pixel >> 16U) & 0xffU);
                    green += opacity * ((pixel >> 8U) & 0xffU);
                    blue += opacity * (pixel & 0xffU);
                }
            }
            const auto count = static_cast<std::uint64_t>(factor) * static_cast<unsigned>(factor);
            const std::uint64_t weight = std::max<std::uint64_t>(alpha, 1);
            result.argb.push_back(
                static_cast<std::uint32_t>(((alpha / count) << 24U) | ((red / weight) << 16U) |
                                           ((green / weight) << 8U) | (blue / weight)));
        }
    }
    return result;
}

} // namespace

std::shared_ptr<const ImagePixels> chooseIcon(std::span<const std::uint32_t> property, int wanted) {
    Picture best;
    while (property.size() > 2) {
        const std::uint32_t width = property[0];
        const std::uint32_t height = property[1];
        const std::uint64_t pixels = std::uint64_t{width} * height;
        property = property.subspan(2);
        if (width == 0 || height == 0 || width > largest || height > largest ||
            pixels > property.size()) {
            break;
        }
        const Picture picture{static_cast<int>(width), static_cast<int>(height),
                              property.first(pixels)};
        if (best.argb.empty() || suitsBetter(picture, best, wanted)) {
            best = picture;
        }
        property = property.subspan(pixels);
    }
    if (best.argb.empty()) {
        return nullptr;
    }
    return std::make_shared<const ImagePixels>(
        scaledDown(best, std::max(1, best.size() / std::max(1, wanted))));
}

} // namespace calmora
