#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

class QApplication;
class QLinearGradient;
class QPainter;
class QRectF;
class QWidget;

namespace calmora {

/// Whether windows are bright or dark.
enum class Appearance { light, dark };

/// The text styles of the program; sizes in device-independent pixels at the usual desktop font.
enum class TextStyle {
    /// 22
    title,
    /// 17
    title2,
    /// 13, semibold
    headline,
    /// 13
    body,
    /// 10
    caption,
    /// 10
    caption2,
};

/// Colours by meaning.
enum class ThemeColor {
    /// Text.
    primary,
    /// Text and symbols that accompany.
    secondary,
    /// Text and symbols in the background of attention; still readable.
    tertiary,
    /// Lines between groups.
    separator,
    /// Faint fill of fields, badges and hovered rows: primary at 0.06.
    fill,
    /// The colour of the program: ticks, badges.
    teal,
    /// Faint teal behind a teal text: teal at 0.12.
    tealFill,
    /// The face of a ticked control; text in onAccent is readable on it.
    accentFace,
    /// Harm.
    red,
    /// Text and symbols on a filled control.
    onAccent,
    /// Outline of an empty check box.
    controlBorder,
    /// Face of an empty check box.
    controlFace,
    /// The ring around the focused control.
    focusRing,
};

/// Colours and fonts for one palette. Follows the desktop: light or dark is read from the palette,
/// the size of texts from the application's font. A small value; make one where it is needed.
class Theme {
  public:
    explicit Theme(const QPalette& palette);

    /// The theme for what `widget` draws.
    [[nodiscard]] static Theme of(const QWidget& widget);

    /// Dark when texts are brighter than the window.
    [[nodiscard]] Appearance appearance() const { return appearance_; }

    [[nodiscard]] QColor color(ThemeColor color) const;

    /// The face of a large button, from the top of `bounds` to its bottom: teal, or red for harm.
    [[nodiscard]] QLinearGradient buttonFace(const QRectF& bounds, bool harmful) const;

    /// The font of a text style; `weight` replaces the weight of the style.
    [[nodiscard]] static QFont font(TextStyle style);
    [[nodiscard]] static QFont font(TextStyle style, QFont::Weight weight);

    /// The side of the box that a symbol of `points` fills, scaled like the texts.
    [[nodiscard]] static int symbolSide(int points);

    /// How much larger than usual the desktop shows texts; 1 at 10 pt and below.
    [[nodiscard]] static double textScale();

  private:
    QColor text_;
    Appearance appearance_;
};

/// The palette of an appearance, for desktops that report only light or dark.
[[nodiscard]] QPalette themePalette(Appearance appearance);

/// Prepares the application: its style, the bound of the picture cache, and, where the desktop
/// gives no palette of its own, the light palette. Call once, before the first widget.
void installTheme(QApplication& application);

/// Turns the whole application light or dark at once, as the desktop prefers.
void setAppearance(Appearance appearance);

/// Draws the ring of the focused control around `bounds`.
void drawFocusRing(QPainter& painter, const QRectF& bounds, double radius, const Theme& theme);

/// Whether `widget` has the focus and got it by keyboard.
[[nodiscard]] bool showsFocus(const QWidget& widget);

} // namespace calmora
