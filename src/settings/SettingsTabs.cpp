#include "settings/SettingsTabs.h"

#include "widgets/Metrics.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace calmora {
namespace {

constexpr int symbolPoints = 18;
constexpr int padding = 6;
/// Between two tabs.
constexpr int gap = 4;
constexpr int leastWidth = 68;

} // namespace

SettingsTabs::SettingsTabs(QWidget* parent) : QTabBar(parent) {
    setObjectName("settingsTabs");
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideNone);
    setFocusPolicy(Qt::TabFocus);
    setFont(Theme::font(TextStyle::body));
    setAttribute(Qt::WA_Hover);
}

void SettingsTabs::add(const QString& symbol, const QString& label) {
    setTabData(addTab(label), symbol);
}

QSize SettingsTabs::tabSizeHint(int index) const {
    const QFontMetrics text(font());
    const int width = std::max(leastWidth, text.horizontalAdvance(tabText(index)) + 4 * padding);
    return {width + gap, Theme::symbolSide(symbolPoints) + text.height() + 3 * padding};
}

void SettingsTabs::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font());
    const Theme theme = Theme::of(*this);
    const int side = Theme::symbolSide(symbolPoints);
    const QPoint pointer = mapFromGlobal(QCursor::pos());
    for (int index = 0; index < count(); ++index) {
        const QRect tab = tabRect(index).adjusted(gap / 2, 0, -gap / 2, 0);
        const bool isChosen = index == currentIndex();
        if (isChosen || (underMouse() && tab.contains(pointer))) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(theme.color(ThemeColor::fill));
            painter.drawRoundedRect(tab, metrics::rowRadius, metrics::rowRadius);
        }
        const QColor color = theme.color(isChosen ? ThemeColor::teal : ThemeColor::secondary);
        const QRect top(tab.left(), tab.top() + padding, tab.width(), side);
        drawSymbol(painter, top, tabData(index).toString(), side, color);
        painter.setPen(color);
        painter.drawText(tab.adjusted(0, side + 2 * padding, 0, -padding), Qt::AlignCenter,
                         tabText(index));
        if (isChosen && showsFocus(*this)) {
            // Inside the tab: the bar has no room around it.
            constexpr int inset = metrics::focusRing;
            drawFocusRing(painter, tab.adjusted(inset, inset, -inset, -inset),
                          metrics::rowRadius - inset, theme);
        }
    }
}

} // namespace calmora
