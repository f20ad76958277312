// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QString>

class QPainter;

#include <optional>
#include <string>

namespace calmora {

/// The text of a key in the user's language; the key itself where there is none.
[[nodiscard]] QString uiText(const char* key);

/// The text of a key with its first "%@" replaced by `argument`.
[[nodiscard]] QString uiText(const char* key, const QString& argument);

/// The text of a key that counts something, in the plural form for `count`.
[[nodiscard]] QString uiCount(const char* key, qlonglong count);

/// The shownName() of a name from outside.
[[nodiscard]] QString displayName(const std::string& name);

/// The end of a line that a text is aligned to, in the reading direction of the interface.
enum class LineEnd { leading, trailing };

/// Draws one line of text, centred vertically, at an end of `bounds`. The text reads in its own
/// direction, whatever the direction of the interface.
void drawLine(QPainter& painter, const QRect& bounds, const QString& text, LineEnd end,
              Qt::LayoutDirection interfaceDirection);

/// "12.5%", or a dash when there is no figure. Not capped: several cores exceed 100.
[[nodiscard]] QString cpuText(const std::optional<double>& percent);

/// "512 MB", or a dash when there is no figure.
[[nodiscard]] QString memoryText(const std::optional<double>& mebibytes);

/// "512 MB", or "1.2 GB" from a gibibyte on.
[[nodiscard]] QString amountText(double mebibytes);

} // namespace calmora
