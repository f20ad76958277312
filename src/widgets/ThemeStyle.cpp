#include "widgets/ThemeStyle.h"

#include "widgets/Metrics.h"
#include "widgets/Theme.h"

#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QStyleOption>

#include <algorithm>

namespace calmora {
namespace {

constexpr int scrollBarWidth = 10;
constexpr int shortestHandle = 28;
/// Around the text of a button, both sides together.
constexpr int buttonMargin = 14;

void drawCheckBox(QPainter& painter, const QStyleOption& option) {
    const Theme theme(option.palette);
    const bool on = option.state & QStyle::State_On;
    const bool partly = option.state & QStyle::State_NoChange;
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!(option.state & QStyle::State_Enabled)) {
        painter.setOpacity(painter.opacity() * 0.45);
    }
    if (on || partly) {
        QColor face = theme.color(ThemeColor::teal);
        if (theme.appearance() == Appearance::dark) {
            face = face.darker(150);
        }
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
        if (on) {
            painter.drawPolyline(QPolygonF{at(0.25, 0.53), at(0.43, 0.71), at(0.76, 0.31)});
        } else {
            painter.drawLine(at(0.27, 0.5), at(0.73, 0.5));
        }
    } else {
        painter.setPen(QPen(theme.color(ThemeColor::controlBorder), 1));
        painter.setBrush(theme.color(
            option.state & QStyle::State_Sunken ? ThemeColor::fill : ThemeColor::controlFace));
        painter.drawRoundedRect(box, metrics::badgeRadius - 0.5, metrics::badgeRadius - 0.5);
    }
    painter.restore();
}

/// Whether a scroll bar belongs to an area of widgets, which leaves room for it; lists of text
/// keep their bar beside them.
bool liesOver(const QWidget* bar) {
    const QWidget* area = bar;
    while (area && !qobject_cast<const QAbstractScrollArea*>(area)) {
        area = area->parentWidget();
    }
    return qobject_cast<const QScrollArea*>(area) != nullptr;
}

} // namespace

ThemeStyle::ThemeStyle() : QProxyStyle("Fusion") {}

void ThemeStyle::polish(QWidget* widget) {
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
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
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
    const int handle = std::min(length, std::max(share, shortestHandle));
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
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

} // namespace calmora
