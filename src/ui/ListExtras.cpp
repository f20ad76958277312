#include "ui/ListExtras.h"

#include "widgets/DisplayText.h"
#include "widgets/Metrics.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QFontMetrics>
#include <QPainter>

namespace calmora {
namespace {

constexpr int headerSpaceBelow = 2;
constexpr int emptyPadding = 40;
constexpr int emptySpacing = 8;
constexpr int emptySymbolPoints = 17;

QFont headerFont() {
    return Theme::font(TextStyle::caption2, QFont::Medium);
}

} // namespace

DividerRow::DividerRow(QWidget* parent) : StackRow(parent) {
    setObjectName("backgroundDivider");
}

void DividerRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect().adjusted(metrics::inset, 0, -metrics::inset, 0),
                     Theme::of(*this).color(ThemeColor::separator));
}

SectionHeaderRow::SectionHeaderRow(QWidget* parent) : StackRow(parent) {
    setObjectName("backgroundHeader");
    setAccessibleName(uiText("Background"));
}

int SectionHeaderRow::rowHeight() {
    return QFontMetrics(headerFont()).height() + headerSpaceBelow;
}

void SectionHeaderRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(headerFont());
    painter.setPen(Theme::of(*this).color(ThemeColor::tertiary));
    painter.drawText(rect().adjusted(metrics::inset, 0, -metrics::inset, -headerSpaceBelow),
                     Qt::AlignLeading | Qt::AlignVCenter, uiText("Background").toUpper());
}

EmptyStateRow::EmptyStateRow(QWidget* parent) : StackRow(parent) {
    setObjectName("emptyState");
    setAccessibleName(uiText("No apps found"));
}

int EmptyStateRow::rowHeight() {
    return 2 * emptyPadding + Theme::symbolSide(emptySymbolPoints) + emptySpacing +
           QFontMetrics(Theme::font(TextStyle::body)).height();
}

void EmptyStateRow::paintEvent(QPaintEvent*) {
    const Theme theme = Theme::of(*this);
    QPainter painter(this);
    const int side = Theme::symbolSide(emptySymbolPoints);
    drawSymbol(painter, QRect(0, emptyPadding, width(), side), "magnifyingglass", side,
               theme.color(ThemeColor::tertiary));
    painter.setFont(Theme::font(TextStyle::body));
    painter.setPen(theme.color(ThemeColor::secondary));
    painter.drawText(
        rect().adjusted(metrics::inset, emptyPadding + side + emptySpacing, -metrics::inset, 0),
        Qt::AlignHCenter | Qt::AlignTop, uiText("No apps found"));
}

} // namespace calmora
