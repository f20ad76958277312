// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include <functional>
#include <optional>

class QApplication;
class QLinearGradient;
class QPainter;
class QRectF;
class QWidget;

namespace calmora {

/// Whether windows are bright or dark.
enum class Appearance { light, dark };

/// A length in points. Where a length is wanted it is device-independent pixels: as many as points
/// at the usual desktop font and below, more where the desktop's font is larger, so that texts keep
/// their space. The desktop's font is the application's.
struct Points {
    int value = 0;

    operator int() const; // NOLINT(google-explicit-constructor)

    friend bool operator==(const Points&, const Points&) = default;
};

/// The text styles of the program; sizes in points.
enum class TextStyle {
    /// 22
    title,
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
    /// The track of a switch, 3 : 1 against the card that it lies on.
    switchOff,
    switchOn,
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

    /// How much larger than usual the desktop shows texts: its font's size by 10 pt, at least 1.
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

/// What the desktop says about light and dark.
struct AppearanceWish {
    /// What it prefers; absent when it has no preference.
    std::optional<Appearance> preferred = {};
    /// Whether its theme has a name that says dark.
    bool isThemeDark = false;
};

/// Turns the whole application light or dark at once. What the desktop prefers comes first. Without
/// that its own palette counts, and where it has none, the name of its theme.
void setAppearance(const AppearanceWish& wish);

/// The size of the application's font, which Qt knows on some desktops only. Make one before
/// anything else sets that font.
class DesktopFont {
  public:
    /// Takes the size that the desktop's settings name, in points; absent means Qt's. Does nothing
    /// where Qt knows the desktop's font.
    void setPoints(std::optional<double> points) const;

  private:
    QFont first_ = QFont();
};

/// Gives menus, pickers' lists and tool tips round corners while windows can be translucent.
void setCompositing(std::function<bool()> isComposited);

/// Whether windows can be translucent now.
[[nodiscard]] bool isComposited();

/// Draws the ring of the focused control around `bounds`.
void drawFocusRing(QPainter& painter, const QRectF& bounds, double radius, const Theme& theme);

/// Whether `widget` has the focus and got it by keyboard.
[[nodiscard]] bool showsFocus(const QWidget& widget);

} // namespace calmora

/// Measures that several views share, in points.
namespace calmora::metrics {

/// Left and right inset of everything in the popover.
inline constexpr Points inset{14};

/// Corner radii.
inline constexpr Points buttonRadius{10};
inline constexpr Points fieldRadius{8};
inline constexpr Points rowRadius{6};
inline constexpr Points badgeRadius{4};

/// Side of a check box.
inline constexpr Points checkBox{16};

/// Width and height of a switch.
inline constexpr Points switchWidth{34};
inline constexpr Points switchHeight{20};

/// Around the text and the chevron of a picker, and the size of the chevron.
inline constexpr Points pickerInset{9};
inline constexpr int chevronPoints = 8;

/// Opacity of a disabled control.
inline constexpr double disabledOpacity = 0.5;

/// The space that a focus ring needs around its control.
inline constexpr Points focusRing{3};

/// Left and right of the cards of a form, and above the first section.
inline constexpr Points formMargin{20};
/// Between two sections of a form.
inline constexpr Points sectionGap{18};
/// Between a section's title and its card.
inline constexpr Points titleGap{7};
/// Left and right in a row of a card.
inline constexpr Points rowInset{12};
/// Above and below the content of a row.
inline constexpr Points rowPadding{6};
/// The minimum height of a row of a form.
inline constexpr Points formRow{38};
/// Between the parts of a row.
inline constexpr Points rowSpacing{8};

} // namespace calmora::metrics
