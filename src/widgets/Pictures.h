// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"

#include <QColor>
#include <QPixmap>
#include <QRect>
#include <QString>

#include <optional>

class QPainter;

namespace calmora {

/// A symbol of the program, drawn in one colour into a square of `side` device-independent pixels.
/// Null when there is no symbol of this name. Cached within the bound of Qt's pixmap cache.
[[nodiscard]] QPixmap symbolPixmap(const QString& name, int side, const QColor& color,
                                   qreal devicePixelRatio);

/// Draws a symbol into the middle of `bounds`, filling a square of `side`.
void drawSymbol(QPainter& painter, const QRect& bounds, const QString& name, int side,
                const QColor& color);

/// Decodes a picture, scaled to fit into a square of `side` device-independent pixels.
/// Null when no source of it can be drawn. Cached like symbols; a picture that cannot be drawn is
/// remembered as such. Looks names up in the icon theme (freedesktop Icon Theme).
[[nodiscard]] QPixmap imagePixmap(const Image& image, int side, qreal devicePixelRatio);

/// Draws a decoded picture into the middle of `bounds`.
void drawPixmap(QPainter& painter, const QRect& bounds, const QPixmap& pixmap);

/// A symbol shown in place of an icon, and its side.
struct IconSubstitute {
    QString symbol;
    int side = 0;
};

/// Draws an icon into a square, or the substitute in `color` if there is none that can be drawn.
/// `color` is that of texts beside it: an icon that would be lost on their background, as a black
/// one on a dark window, is drawn with its colours inverted.
void drawIcon(QPainter& painter, const QRect& square, const std::optional<Image>& icon,
              const IconSubstitute& substitute, const QColor& color);

} // namespace calmora
