#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace calmora {

/// Pixels of a picture that exists in memory only: 8 bits each of alpha, red, green, blue in one
/// 32-bit word (0xAARRGGBB, not premultiplied), row by row, `width * height` of them.
struct ImagePixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> argb = {};

    friend bool operator==(const ImagePixels&, const ImagePixels&) = default;
};

/// Names a picture without decoding it; whoever draws it decodes it.
/// The first source that is set and can be drawn is the picture: the theme's, file, pixels.
struct Image {
    /// Name to look up in the icon theme (freedesktop Icon Theme); empty means none.
    std::string themeName = {};
    /// File to read; empty means none.
    std::filesystem::path file = {};
    /// Shared pixels; null means none.
    std::shared_ptr<const ImagePixels> pixels = {};
    /// Looked up where the theme lacks the first name; empty means none.
    std::string fallbackThemeName = {};

    friend bool operator==(const Image&, const Image&) = default;
};

} // namespace calmora
