#pragma once

#include "platform/Image.h"
#include "platform/desktop/status/DbusTypes.h"

#include <QColor>
#include <QIcon>
#include <QImage>

class QScreen;

namespace calmora {

/// Black or white, whichever can be read better on a bar of this colour.
[[nodiscard]] QColor glyphColorOn(const QColor& background);

/// The colour of the bar around an icon, from a picture of the icon on the screen: that of its
/// corners, which a glyph leaves free. Invalid for an empty picture.
[[nodiscard]] QColor backgroundOf(const QImage& icon);

/// The colour of the bar that keeps windows away from an edge of the screen, as it is drawn now.
/// Invalid where no bar does.
[[nodiscard]] QColor barColor(QScreen& screen);

/// The picture in one colour, in the sizes that bars use; null when it cannot be drawn.
[[nodiscard]] QIcon glyphIcon(const Image& image, const QColor& color);

/// The same for a status item; empty when it cannot be drawn.
[[nodiscard]] QList<DbusPixmap> glyphPixmaps(const Image& image, const QColor& color);

} // namespace calmora
