// SPDX-License-Identifier: MIT
#include "widgets/Labels.h"

#include "widgets/DisplayText.h"
#include "widgets/Pictures.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <limits>

namespace calmora {
namespace {

constexpr Points badgeBeside{6};
constexpr Points badgeAbove{1};

} // namespace

Label::Label(const QString& text, TextStyle style, ThemeColor color, QWidget* parent)
    : QLabel(parent), style_(style), color_(color) {
    setTextFormat(Qt::PlainText);
    setText(text);
}

void Label::setWeight(QFont::Weight weight) {
    weight_ = weight;
    updateGeometry();
}

QSize Label::sizeHint() const {
    const QFontMetrics metrics(styledFont());
    return {metrics.horizontalAdvance(text()) + 1, metrics.height()};
}

QSize Label::minimumSizeHint() const {
    return {0, Label::sizeHint().height()};
}

void Label::prepare(QPainter& painter) const {
    painter.setOpacity(isEnabled() ? 1 : metrics::disabledOpacity);
    painter.setFont(styledFont());
    painter.setPen(Theme::of(*this).color(color_));
}

void Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    prepare(painter);
    drawLine(painter, rect(), painter.fontMetrics().elidedText(text(), Qt::ElideRight, width()),
             LineEnd::leading, layoutDirection());
}

Paragraph::Paragraph(const QString& text, TextStyle style, ThemeColor color, QWidget* parent)
    : Label(text, style, color, parent) {
    setWordWrap(true);
    setHeightForWidth(*this, QSizePolicy::Preferred);
}

QSize Paragraph::sizeHint() const {
    return (Label::sizeHint() + QSize(1, 0)).grownBy(contentsMargins());
}

QSize Paragraph::minimumSizeHint() const {
    return QSize(longestWord(styledFont(), text()), Label::sizeHint().height())
        .grownBy(contentsMargins());
}

int Paragraph::heightForWidth(int width) const {
    const QSize margins = QSize(0, 0).grownBy(contentsMargins());
    return wrappedHeight(styledFont(), text(), width - margins.width()) + margins.height();
}

void Paragraph::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    prepare(painter);
    painter.drawText(contentsRect(),
                     static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())) |
                         Qt::TextWordWrap,
                     text());
}

CountBadge::CountBadge(QWidget* parent)
    : Label({}, TextStyle::caption, ThemeColor::onAccent, parent) {
    setWeight(QFont::Medium);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize CountBadge::sizeHint() const {
    const QFontMetrics font(styledFont());
    const int height = font.height() + 2 * badgeAbove;
    return {std::max(font.horizontalAdvance(text()) + 2 * badgeBeside, height), height};
}

void CountBadge::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::of(*this).color(ThemeColor::accentFace));
    const double radius = height() / 2.0;
    painter.drawRoundedRect(rect(), radius, radius);
    prepare(painter);
    painter.drawText(rect(), Qt::AlignCenter, text());
}

SymbolView::SymbolView(const QString& symbol, int points, ThemeColor color, QWidget* parent)
    : QWidget(parent), symbol_(symbol), points_(points), color_(color) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize SymbolView::sizeHint() const {
    const int side = Theme::symbolSide(points_);
    return {side, side};
}

void SymbolView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawSymbol(painter, rect(), symbol_, Theme::symbolSide(points_),
               Theme::of(*this).color(color_));
}

void AppIconView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawIcon(painter, rect(), icon_, {"app.fill", width()},
             Theme::of(*this).color(ThemeColor::secondary));
}

void Divider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect().adjusted(inset_, 0, -inset_, 0),
                     Theme::of(*this).color(ThemeColor::separator));
}

void setHeightForWidth(QWidget& widget, QSizePolicy::Policy horizontal) {
    QSizePolicy policy(horizontal, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    widget.setSizePolicy(policy);
}

int wrappedHeight(const QFont& font, const QString& text, int width) {
    const QRect bounds(0, 0, std::max(width, 1), std::numeric_limits<short>::max());
    return QFontMetrics(font).boundingRect(bounds, Qt::TextWordWrap, text).height();
}

int longestWord(const QFont& font, const QString& text) {
    const QFontMetrics metrics(font);
    // Not every script has spaces between its words, or breaks lines only between words.
    QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, text);
    int longest = 0;
    for (qsizetype start = 0, end = 0; (end = breaks.toNextBoundary()) >= 0; start = end) {
        const QString word = text.sliced(start, end - start).trimmed();
        longest = std::max(longest, metrics.horizontalAdvance(word));
    }
    return longest;
}

} // namespace calmora
