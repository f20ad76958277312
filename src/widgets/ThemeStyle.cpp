// SPDX-License-Identifier: MIT
#include "widgets/ThemeStyle.h"

#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Pictures.h"
#include "widgets/Popups.h"
#include "widgets/Theme.h"

#include <QComboBox>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QScrollArea>
#include <QStyleOption>
#include <QTabBar>

#include <algorithm>

namespace calmora {
namespace {

constexpr Points scrollBarWidth{10};
constexpr Points shortestHandle{28};
/// Around the text of a button, both sides together.
constexpr Points buttonMargin{14};
constexpr Points symbolGap{4};
constexpr Points knobMargin{2};
constexpr int tabSymbolPoints = 18;
constexpr Points tabPadding{6};
/// Between two tabs.
constexpr Points tabGap{4};
constexpr Points leastTabWidth{68};

void drawCheckBox(QPainter& painter, const QStyleOption& option) {
    const Theme theme(option.palette);
    const bool on = option.state & QStyle::State_On;
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!(option.state & QStyle::State_Enabled)) {
        painter.setOpacity(painter.opacity() * 0.45);
    }
    if (on) {
        QColor face = theme.color(ThemeColor::accentFace);
        if (option.state & QStyle::State_Sunken) {
            face = face.darker(115);
        }
        painter.setPen(Qt::NoPen);
        painter.setBrush(face);
        painter.drawRoundedRect(option.rect, metrics::badgeRadius, metrics::badgeRadius);
        painter.setPen(QPen(theme.color(ThemeColor::onAccent), box.width() / 8.5, Qt::SolidLine,
                            Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        const auto at = [&](double x, double y) {
            return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
        };
        painter.drawPolyline(QPolygonF{at(0.25, 0.53), at(0.43, 0.71), at(0.76, 0.31)});
    } else {
        painter.setPen(QPen(theme.color(ThemeColor::controlBorder), 1));
        painter.setBrush(theme.color(
            option.state & QStyle::State_Sunken ? ThemeColor::fill : ThemeColor::controlFace));
        painter.drawRoundedRect(box, metrics::badgeRadius - 0.5, metrics::badgeRadius - 0.5);
    }
    painter.restore();
}

/// The largest square of a side in the middle of `bounds`.
QRect centred(const QRect& bounds, int side) {
    QRect box(0, 0, side, side);
    box.moveCenter(bounds.center());
    return box;
}

/// The outlined face of a small button or picker, with its focus ring inside.
void drawOutline(QPainter& painter, const QRectF& face, double radius, const Theme& theme) {
    painter.setPen(theme.color(ThemeColor::controlBorder));
    painter.setBrush(theme.color(ThemeColor::controlFace));
    painter.drawRoundedRect(face, radius, radius);
}

void drawInnerRing(QPainter& painter, const QRectF& face, const Theme& theme) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(theme.color(ThemeColor::focusRing), 2));
    painter.drawRoundedRect(face.adjusted(0.5, 0.5, -0.5, -0.5), metrics::rowRadius,
                            metrics::rowRadius);
}

void drawSymbolButton(QPainter& painter, const QStyleOption& option, const Button& button) {
    const ButtonLook& look = button.look();
    const Theme theme(option.palette);
    const int side = Theme::symbolSide(look.symbolPoints);
    const QRect box = centred(option.rect, side);
    const double faint = button.isDown() ? 0.6 : button.isEnabled() ? 1 : metrics::disabledOpacity;
    painter.setOpacity(look.opacity * faint);
    const bool isLit =
        button.underMouse() && button.isEnabled() && look.symbolColor != ThemeColor::red;
    drawSymbol(painter, box, look.symbol, side,
               theme.color(isLit ? ThemeColor::primary : look.symbolColor));
    if (showsFocus(button)) {
        drawFocusRing(painter, box, side / 2.0, theme);
    }
}

/// Fills the face of a button, darker under the pointer and while it is pressed.
void drawFace(QPainter& painter, const QRectF& whole, const Button& button, const Theme& theme) {
    const ButtonLook& look = button.look();
    const QRectF inner = whole.adjusted(0.5, 0.5, -0.5, -0.5);
    if (look.face == ButtonLook::Face::outline) {
        drawOutline(painter, inner, look.radius, theme);
    }
    painter.setPen(Qt::NoPen);
    if (look.face != ButtonLook::Face::outline) {
        painter.setBrush(theme.buttonFace(whole, look.face == ButtonLook::Face::red));
        painter.drawRoundedRect(whole, look.radius, look.radius);
    }
    if (!button.isDown() && !(button.underMouse() && button.isEnabled())) {
        return;
    }
    if (look.ring.value > 0) {
        painter.setBrush(QColor(0, 0, 0, button.isDown() ? 50 : 28));
        painter.drawRoundedRect(whole, look.radius, look.radius);
        return;
    }
    painter.setBrush(theme.color(ThemeColor::fill));
    for (int pass = 0; pass < (button.isDown() ? 2 : 1); ++pass) {
        painter.drawRoundedRect(inner, look.radius, look.radius);
    }
}

void drawButton(QPainter& painter, const QStyleOption& option, const Button& button) {
    const ButtonLook& look = button.look();
    const Theme theme(option.palette);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(button.isEnabled() ? 1 : metrics::disabledOpacity);
    const QRect whole = option.rect.adjusted(look.ring, look.ring, -look.ring, -look.ring);
    const QPointF middle = QRectF(whole).center();
    painter.translate(middle);
    painter.scale(button.scale(), button.scale());
    painter.translate(-middle);
    drawFace(painter, whole, button, theme);

    const ThemeColor color =
        look.face == ButtonLook::Face::outline ? ThemeColor::primary : ThemeColor::onAccent;
    QRect label = whole.adjusted(look.padding.beside, 0, -look.padding.beside, 0);
    if (!look.symbol.isEmpty()) {
        const int side = Theme::symbolSide(look.symbolPoints);
        const QRect place(label.x(), whole.y(), side, whole.height());
        drawSymbol(painter, QStyle::visualRect(option.direction, option.rect, place), look.symbol,
                   side, theme.color(color));
        label.setLeft(label.left() + side + symbolGap);
    }
    painter.setFont(Theme::font(look.text, look.weight));
    painter.setPen(theme.color(color));
    const bool wraps = button.sizePolicy().hasHeightForWidth();
    painter.drawText(
        QStyle::visualRect(option.direction, option.rect, label),
        Qt::AlignCenter | Qt::TextWordWrap,
        wraps ? button.text()
              : painter.fontMetrics().elidedText(button.text(), Qt::ElideRight, label.width()));
    if (look.ring.value == 0 && showsFocus(button)) {
        drawInnerRing(painter, QRectF(whole).adjusted(0.5, 0.5, -0.5, -0.5), theme);
    } else if (look.showsEveryFocus ? button.hasFocus() : showsFocus(button)) {
        drawFocusRing(painter, whole, look.radius, theme);
    }
}

void drawCheckBoxAlone(QPainter& painter, const QStyleOption& option, const CheckBox& box) {
    painter.setOpacity(box.opacity());
    QStyleOption indicator(option);
    indicator.rect = centred(option.rect, metrics::checkBox);
    drawCheckBox(painter, indicator);
    if (showsFocus(box)) {
        drawFocusRing(painter, indicator.rect, metrics::badgeRadius, Theme(option.palette));
    }
}

QColor mixed(const QColor& a, const QColor& b, double share) {
    const auto part = [share](float from, float to) {
        return from + (to - from) * static_cast<float>(share);
    };
    return QColor::fromRgbF(part(a.redF(), b.redF()), part(a.greenF(), b.greenF()),
                            part(a.blueF(), b.blueF()), part(a.alphaF(), b.alphaF()));
}

void drawSwitch(QPainter& painter, const QRectF& track, const SwitchRow& row, const Theme& theme) {
    const QColor face =
        mixed(theme.color(ThemeColor::switchOff), theme.color(ThemeColor::switchOn), row.knob());
    painter.setPen(Qt::NoPen);
    painter.setBrush(row.isDown() ? face.darker(112) : face);
    const double radius = track.height() / 2;
    painter.drawRoundedRect(track, radius, radius);
    const double side = track.height() - 2 * knobMargin;
    const double share = row.layoutDirection() == Qt::RightToLeft ? 1 - row.knob() : row.knob();
    const double offset = knobMargin + (track.width() - track.height()) * share;
    painter.setBrush(theme.color(ThemeColor::onAccent));
    painter.drawEllipse(QRectF(track.left() + offset, track.top() + knobMargin, side, side));
    if (showsFocus(row)) {
        drawFocusRing(painter, track, radius, theme);
    }
}

void drawSwitchRow(QPainter& painter, const QStyleOption& option, const SwitchRow& row) {
    const Theme theme(option.palette);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(row.isEnabled() ? 1 : metrics::disabledOpacity);
    const QRect content = option.rect.adjusted(metrics::rowInset, 0, -metrics::rowInset, 0);
    QRect track(0, 0, metrics::switchWidth, metrics::switchHeight);
    track.moveTopLeft(
        {content.right() + 1 - track.width(), (content.height() - track.height()) / 2});
    const QRect title(content.topLeft(),
                      QPoint(track.left() - metrics::rowSpacing - 1, content.bottom()));
    painter.setFont(Theme::font(TextStyle::body));
    painter.setPen(theme.color(ThemeColor::primary));
    painter.drawText(QStyle::visualRect(option.direction, option.rect, title),
                     static_cast<int>(QStyle::visualAlignment(option.direction,
                                                              Qt::AlignLeft | Qt::AlignVCenter)) |
                         Qt::TextWordWrap,
                     row.text());
    drawSwitch(painter, QStyle::visualRect(option.direction, option.rect, track), row, theme);
}

void drawPicker(QPainter& painter, const QStyleOptionComboBox& option, const QWidget& picker) {
    const Theme theme(option.palette);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(picker.isEnabled() ? 1 : metrics::disabledOpacity);
    const QRect whole = option.rect;
    const QRectF face = QRectF(whole).adjusted(0.5, 0.5, -0.5, -0.5);
    drawOutline(painter, face, metrics::rowRadius, theme);
    const int side = Theme::symbolSide(metrics::chevronPoints);
    const QRect chevron(whole.width() - metrics::pickerInset - side, 0, side, whole.height());
    drawSymbol(painter, QStyle::visualRect(option.direction, whole, chevron), "chevron.down", side,
               theme.color(ThemeColor::secondary));
    const QRect label(metrics::pickerInset, 0, chevron.left() - metrics::pickerInset,
                      whole.height());
    painter.setFont(Theme::font(TextStyle::body));
    painter.setPen(theme.color(ThemeColor::primary));
    drawLine(painter, QStyle::visualRect(option.direction, whole, label), option.currentText,
             LineEnd::leading, option.direction);
    if (showsFocus(picker)) {
        drawInnerRing(painter, face, theme);
    }
}

void drawTab(QPainter& painter, const QStyleOptionTab& option, const QTabBar& bar) {
    painter.setRenderHint(QPainter::Antialiasing);
    const Theme theme(option.palette);
    const int side = Theme::symbolSide(tabSymbolPoints);
    const QRect tab = option.rect.adjusted(tabGap / 2, 0, -tabGap / 2, 0);
    const bool isChosen = option.state & QStyle::State_Selected;
    if (isChosen || (option.state & QStyle::State_MouseOver)) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.color(ThemeColor::fill));
        painter.drawRoundedRect(tab, metrics::rowRadius, metrics::rowRadius);
    }
    const QColor color = theme.color(isChosen ? ThemeColor::teal : ThemeColor::secondary);
    const QRect top(tab.left(), tab.top() + tabPadding, tab.width(), side);
    drawSymbol(painter, top, bar.tabData(option.tabIndex).toString(), side, color);
    painter.setPen(color);
    painter.drawText(tab.adjusted(0, side + 2 * tabPadding, 0, -tabPadding), Qt::AlignCenter,
                     option.text);
    if (isChosen && showsFocus(bar)) {
        // Inside the tab: the bar has no space around it.
        const int inset = metrics::focusRing;
        drawFocusRing(painter, tab.adjusted(inset, inset, -inset, -inset),
                      metrics::rowRadius - inset, theme);
    }
}

/// Whether a scroll bar belongs to an area of widgets, which leaves space for it; lists of text
/// keep their bar beside them.
bool liesOver(const QWidget* bar) {
    const QWidget* area = bar;
    while (area && !qobject_cast<const QAbstractScrollArea*>(area)) {
        area = area->parentWidget();
    }
    return qobject_cast<const QScrollArea*>(area) != nullptr;
}

} // namespace

ThemeStyle::ThemeStyle(bool desktopHasPalette)
    : QProxyStyle("Fusion"), desktopHasPalette_(desktopHasPalette) {}

void ThemeStyle::polish(QWidget* widget) {
    if (isPopup(*widget)) {
        // Before the window is created: translucency is fixed then.
        widget->setAttribute(Qt::WA_TranslucentBackground, isComposited());
        if (!qobject_cast<QLabel*>(widget)) {
            widget->setContentsMargins(1, 0, 1, 0);
        }
    }
    if (auto* label = qobject_cast<QLabel*>(widget)) {
        label->setTextFormat(Qt::PlainText);
    }
    QProxyStyle::polish(widget);
}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    if (element == PE_IndicatorCheckBox) {
        drawCheckBox(*painter, *option);
        return;
    }
    if ((element == PE_PanelMenu || element == PE_PanelTipLabel) && widget) {
        drawPopupFace(*painter, *option, *widget, metrics::rowRadius);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    painter->save();
    const auto* button = dynamic_cast<const Button*>(widget);
    const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
    const auto* bar = qobject_cast<const QTabBar*>(widget);
    if (element == CE_PushButton && button) {
        const bool isSymbol = button->look().face == ButtonLook::Face::none;
        (isSymbol ? drawSymbolButton : drawButton)(*painter, *option, *button);
    } else if (const auto* row = dynamic_cast<const SwitchRow*>(widget)) {
        drawSwitchRow(*painter, *option, *row);
    } else if (const auto* box = dynamic_cast<const CheckBox*>(widget)) {
        drawCheckBoxAlone(*painter, *option, *box);
    } else if (element == CE_TabBarTab && tab && bar) {
        drawTab(*painter, *tab, *bar);
    } else if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
               element == CE_MenuItem && item) {
        drawMenuItem(*painter, *item);
    } else if (element != CE_MenuEmptyArea &&
               element != CE_ComboBoxLabel) { // A picker's label is drawn with its face.
        QProxyStyle::drawControl(element, option, painter, widget);
    }
    painter->restore();
}

QSize ThemeStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                   const QSize& contents, const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type == CT_MenuItem && item) {
        return menuItemSize(*item);
    }
    const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
    if (type != CT_TabBarTab || !tab) {
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
    const QFontMetrics text(tab->fontMetrics);
    const int width =
        std::max<int>(leastTabWidth, text.horizontalAdvance(tab->text) + 4 * tabPadding);
    return {width + tabGap, Theme::symbolSide(tabSymbolPoints) + text.height() + 3 * tabPadding};
}

QRect ThemeStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
    // All of a check box or switch takes clicks; screen readers ask for that area.
    return element == SE_CheckBoxClickRect && dynamic_cast<const CheckBox*>(widget)
               ? option->rect
               : QProxyStyle::subElementRect(element, option, widget);
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    if (const auto* picker = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        control == CC_ComboBox && picker && widget) {
        painter->save();
        drawPicker(*painter, *picker, *widget);
        painter->restore();
        return;
    }
    if (control != CC_ScrollBar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    const bool active = option->state & (State_MouseOver | State_Sunken) ||
                        option->activeSubControls & SC_ScrollBarSlider;
    const QRectF slider = subControlRect(control, option, SC_ScrollBarSlider, widget);
    const double margin = active ? 2 : 3;
    const QRectF handle = slider.adjusted(margin, margin, -margin, -margin);
    const double radius = std::min(handle.width(), handle.height()) / 2;
    const Theme theme(option->palette);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(theme.color(active ? ThemeColor::tertiary : ThemeColor::controlBorder));
    painter->drawRoundedRect(handle, radius, radius);
    painter->restore();
}

QRect ThemeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl subControl, const QWidget* widget) const {
    if (control == CC_ComboBox && subControl == SC_ComboBoxListBoxPopup) {
        // The list lies over the picker so that the texts coincide.
        const int lead = optionInset() - metrics::pickerInset;
        return visualRect(option->direction, option->rect, option->rect.adjusted(-lead, 0, 0, 0));
    }
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || !bar) {
        return QProxyStyle::subControlRect(control, option, subControl, widget);
    }
    const bool upright = bar->orientation == Qt::Vertical;
    const int length = upright ? bar->rect.height() : bar->rect.width();
    const int range = bar->maximum - bar->minimum;
    const int share =
        range > 0
            ? static_cast<int>(qint64{length} * bar->pageStep / (qint64{range} + bar->pageStep))
            : length;
    const int handle = std::min(length, std::max<int>(share, shortestHandle));
    const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                              length - handle, bar->upsideDown);
    const auto span = [&](int from, int to) {
        return upright ? QRect(bar->rect.x(), bar->rect.y() + from, bar->rect.width(), to - from)
                       : QRect(bar->rect.x() + from, bar->rect.y(), to - from, bar->rect.height());
    };
    switch (subControl) {
    case SC_ScrollBarSlider:
        return span(start, start + handle);
    case SC_ScrollBarGroove:
        return bar->rect;
    case SC_ScrollBarSubPage:
        return span(0, start);
    case SC_ScrollBarAddPage:
        return span(start + handle, length);
    default:
        return {};
    }
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return metrics::checkBox;
    case PM_ButtonMargin:
        return buttonMargin;
    case PM_MenuPanelWidth:
    case PM_MenuHMargin:
        return 0;
    case PM_MenuVMargin:
        return menuPadding();
    case PM_ToolTipLabelFrameWidth:
        return toolTipPadding();
    case PM_ScrollBarExtent:
        return scrollBarWidth;
    case PM_ScrollBarSliderMin:
        return shortestHandle;
    case PM_ScrollView_ScrollBarOverlap:
        return liesOver(widget) ? scrollBarWidth : 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returnData) const {
    if (hint == SH_ScrollBar_Transient) {
        return 0;
    }
    if (hint == SH_ComboBox_PopupFrameStyle) {
        return QFrame::NoFrame;
    }
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

} // namespace calmora
