// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionMenuItem;
class QWidget;

/// How the style draws menus, the options of a picker, and tool tips: on a rounded face where
/// windows can be translucent, else on one with a plain edge, as the popover.
namespace calmora {

/// Between the edge of a menu and its first and last item.
[[nodiscard]] int menuPadding();

/// From the leading edge of a picker's list to the text of its options.
[[nodiscard]] int optionInset();

/// Between the edge of a tool tip and its text.
[[nodiscard]] int toolTipPadding();

/// Whether the widget is a window that the functions here draw: a menu, a list of options, a tool
/// tip.
[[nodiscard]] bool isPopup(const QWidget& widget);

/// Fills a popup's window, which gets round corners if it is translucent.
void drawPopupFace(QPainter& painter, const QStyleOption& option, const QWidget& popup, int radius);

/// Draws an item of a menu or an option of a picker, highlighted while it is selected.
void drawMenuItem(QPainter& painter, const QStyleOptionMenuItem& option);

[[nodiscard]] QSize menuItemSize(const QStyleOptionMenuItem& option);

} // namespace calmora
