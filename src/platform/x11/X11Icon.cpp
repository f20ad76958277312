// SPDX-License-Identifier: MIT
#include "platform/x11/X11Icon.h"

#include <algorithm>
#include <optional>
#include <utility>

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

namespace {

/// A pixmap of the server, with what tells how its bytes are laid out.
class ServerPicture {
  public:
    /// Reads nothing that is too large, or not of one of the usual formats.
    ServerPicture(const X11Connection& connection, xcb_pixmap_t pixmap)
        : setup_(xcb_get_setup(connection.get())) {
        const auto geometry = connection.ask<xcb_get_geometry, xcb_get_geometry_reply>(pixmap);
        const bool isUsual =
            geometry && (geometry->depth == 1 || geometry->depth == 24 || geometry->depth == 32);
        if (!isUsual || geometry->width > largestPixmap || geometry->height > largestPixmap) {
            return;
        }
        constexpr std::uint8_t format = XCB_IMAGE_FORMAT_Z_PIXMAP;
        constexpr std::uint32_t allPlanes = ~0U;
        image_ = connection.ask<xcb_get_image, xcb_get_image_reply>(
            format, pixmap, std::int16_t{0}, std::int16_t{0}, geometry->width, geometry->height,
            allPlanes);
        if (!image_) {
            return;
        }
        width = geometry->width;
        height = geometry->height;
        isBitmap = geometry->depth == 1;
        const unsigned padding = isBitmap ? setup_->bitmap_format_scanline_pad : 32U;
        const unsigned bits = geometry->width * (isBitmap ? 1U : 32U);
        stride_ = (bits + padding - 1) / padding * padding / 8;
        const auto size = static_cast<std::size_t>(xcb_get_image_data_length(image_.get()));
        if (size < std::size_t{stride_} * geometry->height) {
            width = height = 0;
        }
    }

    int width = 0;
    int height = 0;
    bool isBitmap = false;

    /// A bit, or a colour as 0xRRGGBB.
    [[nodiscard]] std::uint32_t at(int x, int y) const {
        const auto column = static_cast<unsigned>(x);
        const std::uint8_t* row =
            xcb_get_image_data(image_.get()) + std::size_t{stride_} * static_cast<unsigned>(y);
        if (isBitmap) {
            const bool isLeastFirst = setup_->bitmap_format_bit_order == XCB_IMAGE_ORDER_LSB_FIRST;
            return row[column / 8] >> (isLeastFirst ? column % 8 : 7 - column % 8) & 1U;
        }
        const bool isLeastFirst = setup_->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
        std::uint32_t color = 0;
        for (unsigned byte = 0; byte < 4; ++byte) {
            color |= std::uint32_t{row[4 * column + byte]} << 8 * (isLeastFirst ? byte : 3 - byte);
        }
        return color & 0xffffffU;
    }

  private:
    static constexpr int largestPixmap = 512;

    const xcb_setup_t* setup_;
    X11Reply<xcb_get_image_reply_t> image_;
    unsigned stride_ = 0;
};

} // namespace

std::shared_ptr<const ImagePixels> hintsIcon(const X11Connection& connection, xcb_window_t window) {
    constexpr std::size_t icon = 3;
    constexpr std::size_t mask = 7;
    constexpr std::uint32_t hasIcon = 1U << 2U;
    constexpr std::uint32_t hasMask = 1U << 5U;
    const X11Reply<xcb_get_property_reply_t> property(xcb_get_property_reply(
        connection.get(), connection.requestProperty(window, XCB_ATOM_WM_HINTS, mask + 1),
        nullptr));
    const auto hints = words(property);
    if (hints.size() <= icon || (hints[0] & hasIcon) == 0) {
        return nullptr;
    }
    const ServerPicture picture(connection, hints[icon]);
    if (picture.width == 0 || picture.height == 0) {
        return nullptr;
    }
    std::optional<ServerPicture> shape;
    if (hints.size() > mask && (hints[0] & hasMask) != 0) {
        shape.emplace(connection, hints[mask]);
        if (!shape->isBitmap || shape->width != picture.width || shape->height != picture.height) {
            shape.reset();
        }
    }
    ImagePixels result{picture.width, picture.height, {}};
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            const std::uint32_t value = picture.at(x, y);
            const bool isOpaque = shape ? shape->at(x, y) != 0 : !picture.isBitmap || value != 0;
            const std::uint32_t color = !picture.isBitmap ? value : value != 0 ? 0U : 0xffffffU;
            result.argb.push_back(isOpaque ? 0xff000000U | color : 0U);
        }
    }
    return std::make_shared<const ImagePixels>(std::move(result));
}

} // namespace calmora
