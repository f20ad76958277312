// SPDX-License-Identifier: MIT
#include "widgets/Theme.h"

#include "widgets/ThemeStyle.h"

#include <QApplication>
#include <QIcon>
#include <QLinearGradient>
#include <QPainter>
#include <QPixmapCache>
#include <QScreen>
#include <QStyleFactory>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace calmora {
namespace {

/// The usual desktop font, in points of type and in pixels at the usual resolution.
constexpr double usualFont = 10;
constexpr double usualResolution = 96;
constexpr double usualFontPixels = usualFont * usualResolution / 72;

constexpr int pictureCacheKiB = 3 * 1024;

/// The sizes of texts, in the order of TextStyle.
constexpr std::array textPoints{22, 13, 13, 10, 10};

QColor withAlpha(QColor color, double alpha) {
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

} // namespace

Theme::Theme(const QPalette& palette)
    : text_(palette.color(QPalette::Active, QPalette::WindowText)),
      appearance_(text_.lightnessF() >
                          palette.color(QPalette::Active, QPalette::Window).lightnessF()
                      ? Appearance::dark
                      : Appearance::light) {}

Theme Theme::of(const QWidget& widget) {
    return Theme(widget.palette());
}

QColor Theme::color(ThemeColor color) const {
    const bool dark = appearance_ == Appearance::dark;
    switch (color) {
    case ThemeColor::primary:
        return text_;
    case ThemeColor::secondary:
        return withAlpha(text_, dark ? 0.74 : 0.76);
    case ThemeColor::tertiary:
        return withAlpha(text_, dark ? 0.56 : 0.64);
    case ThemeColor::separator:
        return withAlpha(text_, dark ? 0.14 : 0.11);
    case ThemeColor::fill:
        return withAlpha(text_, 0.06);
    case ThemeColor::teal:
        return dark ? QColor(0x3f, 0xc7, 0xba) : QColor(0x07, 0x64, 0x5b);
    case ThemeColor::tealFill:
        return withAlpha(this->color(ThemeColor::teal), 0.12);
    case ThemeColor::accentFace:
        return dark ? this->color(ThemeColor::teal).darker(150) : this->color(ThemeColor::teal);
    case ThemeColor::red:
        return dark ? QColor(0xff, 0x6b, 0x61) : QColor(0xcf, 0x2a, 0x24);
    case ThemeColor::onAccent:
        return {0xff, 0xff, 0xff};
    case ThemeColor::controlBorder:
        return withAlpha(text_, dark ? 0.38 : 0.34);
    case ThemeColor::controlFace:
        return dark ? withAlpha(text_, 0.06) : QColor(0xff, 0xff, 0xff);
    case ThemeColor::switchOff:
        return withAlpha(text_, dark ? 0.42 : 0.5);
    case ThemeColor::switchOn:
        return dark ? this->color(ThemeColor::teal).darker(140) : this->color(ThemeColor::teal);
    case ThemeColor::focusRing:
        return withAlpha(this->color(ThemeColor::teal), 0.65);
    }
    return text_;
}

QLinearGradient Theme::buttonFace(const QRectF& bounds, bool harmful) const {
    QLinearGradient face(bounds.topLeft(), bounds.bottomLeft());
    const bool dark = appearance_ == Appearance::dark;
    if (harmful) {
        face.setColorAt(0, dark ? QColor(0xcf, 0x3a, 0x33) : QColor(0xd6, 0x3d, 0x35));
        face.setColorAt(1, dark ? QColor(0xb8, 0x2c, 0x27) : QColor(0xc4, 0x2b, 0x26));
    } else {
        face.setColorAt(0, dark ? QColor(0x0e, 0x80, 0x76) : QColor(0x0f, 0x83, 0x7a));
        face.setColorAt(1, dark ? QColor(0x0a, 0x6f, 0x66) : QColor(0x0b, 0x78, 0x6e));
    }
    return face;
}

QFont Theme::font(TextStyle style) {
    return font(style, style == TextStyle::headline ? QFont::DemiBold : QFont::Normal);
}

QFont Theme::font(TextStyle style, QFont::Weight weight) {
    QFont font = QApplication::font();
    font.setPixelSize(static_cast<int>(
        std::lround(textPoints.at(static_cast<std::size_t>(style)) * textScale())));
    font.setWeight(weight);
    return font;
}

int Theme::symbolSide(int points) {
    // A symbol is a little larger than the letters beside it. Even sides match the
    // grid on which the symbols are drawn, and centre without halves.
    return 2 * static_cast<int>(std::lround(points * 1.25 * textScale() / 2));
}

double Theme::textScale() {
    const QFont font = QApplication::font();
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double resolution = screen ? screen->logicalDotsPerInchY() : usualResolution;
    const double scale = font.pointSizeF() > 0
                             ? font.pointSizeF() / usualFont * resolution / usualResolution
                             : font.pixelSize() / usualFontPixels;
    return std::max(scale, 1.0);
}

Points::operator int() const {
    return static_cast<int>(std::lround(value * Theme::textScale()));
}

QPalette themePalette(Appearance appearance) {
    const bool dark = appearance == Appearance::dark;
    const QColor window = dark ? QColor(0x26, 0x28, 0x2a) : QColor(0xf7, 0xf7, 0xf6);
    const QColor base = dark ? QColor(0x1d, 0x1f, 0x20) : QColor(0xff, 0xff, 0xff);
    const QColor button = dark ? QColor(0x36, 0x39, 0x3b) : QColor(0xfb, 0xfb, 0xfa);
    const QColor text = dark ? QColor(0xf0, 0xf1, 0xf1) : QColor(0x1c, 0x1e, 0x1f);
    const QColor accent = dark ? QColor(0x1a, 0x9c, 0x90) : QColor(0x07, 0x64, 0x5b);
    QPalette palette(button, window);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, withAlpha(text, 0.4));
    }
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, button);
    palette.setColor(QPalette::PlaceholderText, withAlpha(text, dark ? 0.56 : 0.64));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, QColor(0xff, 0xff, 0xff));
    palette.setColor(QPalette::Link, accent);
    return palette;
}

void installTheme(QApplication& application) {
    QPixmapCache::setCacheLimit(pictureCacheKiB);
    // A bare window manager names no theme, a desktop perhaps an incomplete one; the names of the
    // freedesktop icon naming, which many desktop entries use, are not in hicolor.
    QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
    const bool desktopHasStyle = application.style()->name().compare("fusion") != 0;
    QApplication::setStyle(std::make_unique<ThemeStyle>(desktopHasStyle).release());
    setAppearance({});
}

void setAppearance(const AppearanceWish& wish) {
    std::optional<Appearance> appearance = wish.preferred;
    if (!appearance) {
        QApplication::setPalette(QPalette()); // The desktop's own.
        const auto* style = dynamic_cast<const ThemeStyle*>(QApplication::style());
        const bool isDesktops = (style && style->desktopHasPalette()) ||
                                Theme(QApplication::palette()).appearance() == Appearance::dark;
        if (!isDesktops) {
            appearance = wish.isThemeDark ? Appearance::dark : Appearance::light;
        }
    }
    if (appearance) {
        QApplication::setPalette(themePalette(*appearance));
    }
}

void DesktopFont::setPoints(std::optional<double> points) const {
    // What Qt takes on desktops whose settings it does not read.
    constexpr double ownPoints = 9;
    const bool isQtsOwn = first_.family() == "Sans Serif" && first_.pointSizeF() == ownPoints;
    QFont font = first_;
    font.setPointSizeF(points.value_or(ownPoints));
    if (isQtsOwn && font != QApplication::font()) {
        QApplication::setFont(font);
    }
}

void setCompositing(std::function<bool()> isComposited) {
    if (auto* style = dynamic_cast<ThemeStyle*>(QApplication::style())) {
        style->setCompositing(std::move(isComposited));
    }
}

bool isComposited() {
    const auto* style = dynamic_cast<const ThemeStyle*>(QApplication::style());
    return style && style->isComposited();
}

void drawFocusRing(QPainter& painter, const QRectF& bounds, double radius, const Theme& theme) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const double line = metrics::focusRing * 2 / 3.0;
    painter.setPen(QPen(theme.color(ThemeColor::focusRing), line));
    const double out = metrics::focusRing - line * 0.75;
    painter.drawRoundedRect(bounds.adjusted(-out, -out, out, out), radius + out, radius + out);
    painter.restore();
}

bool showsFocus(const QWidget& widget) {
    return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

} // namespace calmora
