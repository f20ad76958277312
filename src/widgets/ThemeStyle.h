// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

#include <functional>
#include <utility>

namespace calmora {

/// The look of the standard widgets: Qt's own Fusion style with our buttons, check boxes, switches,
/// pickers, menus, tool tips and tabs (a symbol, named by the tab's data, over a label), and slim
/// scroll bars that lie over what they scroll. Needs the palette alone.
class ThemeStyle final : public QProxyStyle {
  public:
    /// `desktopHasPalette` tells whether the toolkit's palette is the desktop's own.
    explicit ThemeStyle(bool desktopHasPalette);

    [[nodiscard]] bool desktopHasPalette() const { return desktopHasPalette_; }

    /// Gives the menus, lists and tool tips that open from now on round corners while
    /// `isComposited`.
    void setCompositing(std::function<bool()> isComposited) {
        isComposited_ = std::move(isComposited);
    }

    using QProxyStyle::polish;

    /// Makes every label, and so every tool tip, plain text: labels show untrusted names, and
    /// markup in a name could read any file.
    void polish(QWidget* widget) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl subControl, const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& contents,
                                         const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* returnData) const override;

    [[nodiscard]] bool isComposited() const { return isComposited_ && isComposited_(); }

  private:
    bool desktopHasPalette_;
    std::function<bool()> isComposited_;
};

} // namespace calmora
