// SPDX-License-Identifier: MIT
#include "platform/desktop/status/Glyph.h"

#include "widgets/Pictures.h"

#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace calmora {
namespace {

/// Heights of the icons in common bars, at one and two pixels a point.
constexpr std::array sides = {16, 19, 22, 24, 32, 38, 48};

QImage tinted(const Image& image, int side, const QColor& color) {
    const QPixmap pixmap = imagePixmap(image, side, 1);
    if (pixmap.isNull()) {
        return {};
    }
    QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    drawPixmap(painter, square.rect(), pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(square.rect(), color);
    return square;
}

} // namespace

QColor glyphColorOn(const QColor& background) {
    // Half of the perceived lightness, not of the light.
    return qGray(background.rgb()) > 150 ? Qt::black : Qt::white;
}

QColor backgroundOf(const QImage& icon) {
    if (icon.isNull()) {
        return {};
    }
    // At a fractional scale the outermost pixels may lie beside the icon.
    const int edge = static_cast<int>(std::ceil(icon.devicePixelRatio()));
    const QRect inner = icon.rect().adjusted(edge, edge, -edge, -edge);
    const QRect area = inner.isEmpty() ? icon.rect() : inner;
    const std::array corners = {icon.pixelColor(area.topLeft()), icon.pixelColor(area.topRight()),
                                icon.pixelColor(area.bottomLeft()),
                                icon.pixelColor(area.bottomRight())};
    int red = 0;
    int green = 0;
    int blue = 0;
    for (const QColor& corner : corners) {
        red += corner.red();
        green += corner.green();
        blue += corner.blue();
    }
    constexpr int count = corners.size();
    return {red / count, green / count, blue / count};
}

QColor barColor(QScreen& screen) {
    const QRect whole = screen.geometry();
    const QRect free = screen.availableGeometry();
    const std::array strips = {
        QRect(whole.topLeft(), QPoint(whole.right(), free.top() - 1)),
        QRect(QPoint(whole.left(), free.bottom() + 1), whole.bottomRight()),
        QRect(whole.topLeft(), QPoint(free.left() - 1, whole.bottom())),
        QRect(QPoint(free.right() + 1, whole.top()), whole.bottomRight()),
    };
    const QRect bar = *std::ranges::max_element(
        strips, {}, [](const QRect& strip) { return std::min(strip.width(), strip.height()); });
    if (bar.isEmpty()) {
        return {};
    }
    const QPoint origin = bar.topLeft() - whole.topLeft();
    const QImage seen =
        screen.grabWindow(0, origin.x(), origin.y(), bar.width(), bar.height()).toImage();
    // Most of a bar is empty: its colour is the most frequent one.
    std::map<QRgb, int> counts;
    for (int y = 0; y < seen.height(); y += 3) {
        for (int x = 0; x < seen.width(); x += 3) {
            ++counts[seen.pixel(x, y)];
        }
    }
    const auto most =
        std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.second; });
    return most == counts.end() ? QColor() : QColor(most->first);
}

QIcon glyphIcon(const Image& image, const QColor& color) {
    QIcon icon;
    for (const int side : sides) {
        if (const QImage glyph = tinted(image, side, color); !glyph.isNull()) {
            icon.addPixmap(QPixmap::fromImage(glyph));
        }
    }
    return icon;
}

QList<DbusPixmap> glyphPixmaps(const Image& image, const QColor& color) {
    QList<DbusPixmap> pixmaps;
    for (const int side : sides) {
        const QImage glyph = tinted(image, side, color).convertToFormat(QImage::Format_ARGB32);
        if (glyph.isNull()) {
            continue;
        }
        QByteArray bytes(glyph.sizeInBytes(), Qt::Uninitialized);
        qToBigEndian<quint32>(glyph.constBits(), glyph.sizeInBytes() / 4, bytes.data());
        pixmaps.append({side, side, bytes});
    }
    return pixmaps;
}

} // namespace calmora
