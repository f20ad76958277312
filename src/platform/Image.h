// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace calmora {

/// Pixels of a picture in memory: 8 bits each of alpha, red, green, blue in one 32-bit word
/// (0xAARRGGBB, not premultiplied), row by row, `width * height` of them.
struct ImagePixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> argb = {};

    friend bool operator==(const ImagePixels&, const ImagePixels&) = default;
};

/// Refers to a picture without decoding it. The first source that is set and can be drawn counts:
/// icon theme, file, pixels.
struct Image {
    /// Name to look up in the icon theme (freedesktop Icon Theme); empty means none.
    std::string themeName = {};
    /// File to read; empty means none.
    std::filesystem::path file = {};
    /// Shared pixels; null means none.
    std::shared_ptr<const ImagePixels> pixels = {};
    /// Looked up if the theme lacks the first name; empty means none.
    std::string fallbackThemeName = {};

    friend bool operator==(const Image&, const Image&) = default;
};

} // namespace calmora
