// SPDX-License-Identifier: MIT
#include "widgets/Theme.h"
#include "widgets/Pictures.h"

#include <sys/stat.h>

#include <cmath>

namespace calmora {
namespace {

/// Relative luminance. Source: WCAG 2.1.
double luminance(const QColor& color) {
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// The colour that painting `color` over `ground` gives.
QColor over(const QColor& color, const QColor& ground) {
    QImage pixel(1, 1, QImage::Format_RGB32);
    pixel.fill(ground);
    QPainter(&pixel).fillRect(pixel.rect(), color);
    return pixel.pixelColor(0, 0);
}

double contrast(const QColor& text, const QColor& ground) {
    const double a = luminance(over(text, ground));
    const double b = luminance(ground);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

TEST(Theme, FollowsThePaletteWithReadableContrast) {
    for (const Appearance appearance : {Appearance::light, Appearance::dark}) {
        const QPalette palette = themePalette(appearance);
        const Theme theme(palette);
        EXPECT_EQ(theme.appearance(), appearance);
        for (const ThemeColor color : {ThemeColor::primary, ThemeColor::secondary,
                                       ThemeColor::tertiary, ThemeColor::teal, ThemeColor::red}) {
            EXPECT_GE(contrast(theme.color(color), palette.color(QPalette::Window)), 4.5)
                << static_cast<int>(color) << (appearance == Appearance::dark ? " dark" : " light");
        }
        for (const bool harmful : {false, true}) {
            for (const auto& [place, color] :
                 theme.buttonFace(QRectF(0, 0, 10, 36), harmful).stops()) {
                EXPECT_GE(contrast(theme.color(ThemeColor::onAccent), color), 4.5) << place;
            }
        }
        const QColor hovered = over(theme.color(ThemeColor::fill), palette.color(QPalette::Window));
        const QColor badge = over(theme.color(ThemeColor::tealFill), hovered);
        EXPECT_GE(contrast(theme.color(ThemeColor::teal), badge), 4.5);
        const QColor card =
            over(theme.color(ThemeColor::controlFace), palette.color(QPalette::Window));
        for (const ThemeColor track : {ThemeColor::switchOff, ThemeColor::switchOn}) {
            EXPECT_GE(contrast(theme.color(track), card), 3);
        }
    }
}

TEST(Theme, ReturnsToTheDesktopsPaletteWithoutAPreference) {
    const auto shown = [](const AppearanceWish& wish) {
        setAppearance(wish);
        return Theme(QApplication::palette()).appearance();
    };
    EXPECT_EQ(shown({.preferred = Appearance::dark}), Appearance::dark);
    EXPECT_EQ(shown({}), Appearance::light);
    EXPECT_EQ(shown({.isThemeDark = true}), Appearance::dark);
    EXPECT_EQ(shown({.preferred = Appearance::light, .isThemeDark = true}), Appearance::light);
    setAppearance({});
}

TEST(Pictures, DecodesTheFirstSourceThatCanBeDrawn) {
    const QTemporaryDir folder;
    const auto path = [&](const char* name) { return folder.filePath(name); };
    QImage wide(64, 16, QImage::Format_ARGB32);
    wide.fill(Qt::blue);
    ASSERT_TRUE(wide.save(path("wide.png")));
    std::ofstream(path("broken.png").toStdString()) << "not a picture";
    ASSERT_EQ(mkfifo(qPrintable(path("pipe")), 0600), 0);
    const auto file = [&](const char* name) { return Image{{}, path(name).toStdString(), {}}; };
    const auto pixels = std::make_shared<ImagePixels>(ImagePixels{2, 1, {0xff00ff00, 0xff00ff00}});

    EXPECT_EQ(imagePixmap(file("wide.png"), 24, 2).size(), QSize(48, 12));
    std::ofstream(path("a.svg").toStdString())
        << R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9">)"
        << R"(<image xlink:href=")" << path("pipe").toStdString()
        << R"(" width="9" height="9" xmlns:xlink="http://www.w3.org/1999/xlink"/></svg>)";
    EXPECT_EQ(imagePixmap(file("a.svg"), 24, 1).size(), QSize(24, 24)) << "without the pipe";
    for (const char* name : {"broken.png", "pipe", "missing.png"}) {
        Image image = file(name);
        image.themeName = "no-such-icon";
        image.pixels = pixels;
        EXPECT_EQ(imagePixmap(image, 24, 1).size(), QSize(24, 12)) << name;
    }
    for (const ImagePixels& wrong :
         {ImagePixels{3, 1, {1, 2}}, ImagePixels{-1, -2, {1, 2}}, ImagePixels{0, 0, {}}}) {
        EXPECT_TRUE(imagePixmap({{}, {}, std::make_shared<ImagePixels>(wrong)}, 24, 1).isNull());
    }
}

TEST(Pictures, DrawsBlackIconsWhereTheyAreSeen) {
    constexpr QRgb nearBlack = 0xff2e3436;
    constexpr QRgb blue = 0xff0000ff;

    const struct {
        Appearance appearance;
        QRgb icon;
        QRgb drawn;
    } rows[] = {
        {Appearance::light, nearBlack, nearBlack},
        {Appearance::dark, nearBlack, 0xffd1cbc9},
        {Appearance::light, 0xfffafafa, 0xff050505},
        {Appearance::dark, 0xfffafafa, 0xfffafafa},
        {Appearance::light, blue, blue},
        {Appearance::dark, blue, blue},
    };

    for (const auto& [appearance, icon, drawn] : rows) {
        const Image image{{}, {}, std::make_shared<ImagePixels>(ImagePixels{1, 1, {icon}})};
        QImage target(24, 24, QImage::Format_ARGB32);
        QPainter painter(&target);
        drawIcon(painter, target.rect(), image, {},
                 Theme(themePalette(appearance)).color(ThemeColor::primary));
        EXPECT_EQ(target.pixel(12, 12), drawn) << std::hex << icon << ' ' << drawn;
    }
}

} // namespace
} // namespace calmora
