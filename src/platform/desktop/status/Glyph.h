// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"
#include "platform/desktop/status/DbusTypes.h"

#include <QColor>
#include <QIcon>
#include <QImage>

#include <array>
#include <chrono>

class QScreen;

namespace calmora {

/// When to look at a bar again after an icon has appeared in it: many paint themselves late, and
/// nobody tells.
inline constexpr std::array latePaintings{std::chrono::milliseconds{500},
                                          std::chrono::milliseconds{2000},
                                          std::chrono::milliseconds{5000}};

/// Black or white, whichever contrasts more with a bar of this colour.
[[nodiscard]] QColor glyphColorOn(const QColor& background);

/// The colour of the bar around an icon, from the corners of its picture on the screen, which a
/// glyph leaves free. Invalid for an empty picture.
[[nodiscard]] QColor backgroundOf(const QImage& icon);

/// The colour on screen of the bar that reserves space at an edge; invalid when there is none.
[[nodiscard]] QColor barColor(QScreen& screen);

/// The picture in one colour, in the sizes that bars use; null when it cannot be drawn.
[[nodiscard]] QIcon glyphIcon(const Image& image, const QColor& color);

/// The same for a status item; empty when it cannot be drawn.
[[nodiscard]] QList<DbusPixmap> glyphPixmaps(const Image& image, const QColor& color);

} // namespace calmora
