// SPDX-License-Identifier: MIT
#include "platform/x11/XSettings.h"

namespace calmora {
namespace {

using namespace std::string_literals;

/// Integers, a colour and two texts, in this byte order.
std::vector<std::uint8_t> property(bool isBigEndian, std::uint32_t scale = 1,
                                   std::uint32_t dotsPerInch = 96) {
    std::string bytes = (isBigEndian ? "\1"s : "\0"s) + "\0\0\0"s;
    const auto number = [&](std::uint32_t value, unsigned size) {
        for (unsigned i = 0; i < size; ++i) {
            const unsigned place = isBigEndian ? size - 1 - i : i;
            bytes += static_cast<char>(value >> 8 * place & 0xffU);
        }
    };
    const auto text = [&](std::string value) {
        value.resize((value.size() + 3) / 4 * 4);
        bytes += value;
    };
    const auto setting = [&](std::uint32_t type, const std::string& name) {
        number(type, 1);
        number(0, 1);
        number(static_cast<std::uint32_t>(name.size()), 2);
        text(name);
        number(7, 4);
    };
    number(7, 4);
    number(5, 4);
    setting(0, "Gdk/WindowScalingFactor");
    number(scale, 4);
    setting(0, "Xft/DPI");
    number(dotsPerInch * 1024, 4);
    setting(2, "Net/Color");
    bytes += "12345678";
    setting(1, "Gtk/FontName");
    number(7, 4);
    text("Sans 10");
    setting(1, "Net/ThemeName");
    number(12, 4);
    text("Adwaita-dark");
    return {bytes.begin(), bytes.end()};
}

TEST(XSettings, AreReadInBothByteOrdersAndOnlyWhole) {
    for (const bool isBigEndian : {false, true}) {
        const std::vector<std::uint8_t> whole = property(isBigEndian);
        EXPECT_EQ(xsettingsText(whole, "Net/ThemeName"), "Adwaita-dark");
        EXPECT_EQ(xsettingsText(whole, "Xft/DPI"), std::nullopt);
        for (std::size_t size = 0; size < whole.size(); ++size) {
            EXPECT_EQ(xsettingsText(std::span(whole).first(size), "Net/ThemeName"), std::nullopt);
        }
    }
}

TEST(XSettings, TellAScaleThatIsNotInTheResolution) {
    // Scale, dots per inch.
    const std::tuple<std::uint32_t, std::uint32_t, int> rows[] = {
        {1, 96, 1}, {2, 96, 2}, {2, 120, 2}, {2, 192, 1}, {3, 288, 1}, {0, 96, 1}, {9, 96, 1},
    };
    for (const auto& [scale, dotsPerInch, unseen] : rows) {
        EXPECT_EQ(unseenWindowScale(property(false, scale, dotsPerInch)), unseen)
            << scale << ", " << dotsPerInch;
    }
    EXPECT_EQ(unseenWindowScale({}), 1);
}

TEST(XSettings, NameDarkThemes) {
    for (const char* dark : {"Adwaita-dark", "Arc-Dark", "Mint-Y-Dark-Aqua", "Adwaita:dark",
                             "HighContrastInverse", "BlackMATE"}) {
        EXPECT_TRUE(namesDarkTheme(dark)) << dark;
    }
    for (const char* light : {"", "Adwaita", "Arc-Darker", "Darkroom", "Greybird-"}) {
        EXPECT_FALSE(namesDarkTheme(light)) << light;
    }
}

TEST(XSettings, NameTheSizeOfTheFont) {
    const std::pair<const char*, std::optional<double>> rows[] = {
        {"Sans 10", 10},      {"Noto Sans Bold 10.5", 10.5},
        {"Sans 12px", 9},     {"11", 11},
        {"Noto Sans", {}},    {"Sans 0", {}},
        {"Sans -4", {}},      {"Sans 1e9", {}},
        {"Sans 12 Bold", {}}, {"Sans 12em", {}},
        {"Sans nan", {}},     {"", {}},
    };
    for (const auto& [font, points] : rows) {
        EXPECT_EQ(namedFontPoints(font), points) << font;
    }
}

} // namespace
} // namespace calmora
