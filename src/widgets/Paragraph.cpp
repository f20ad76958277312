#include "widgets/Paragraph.h"

#include "widgets/FormMetrics.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <limits>

namespace calmora {
namespace {

QSize grownBy(const QMargins& margins, const QSize& size) {
    return {size.width() + margins.left() + margins.right(),
            size.height() + margins.top() + margins.bottom()};
}

} // namespace

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

Paragraph::Paragraph(const QString& text, TextStyle style, ThemeColor color, QWidget* parent)
    : QLabel(parent), style_(style), color_(color) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setText(text);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize Paragraph::sizeHint() const {
    const QFontMetrics metrics(Theme::font(style_));
    return grownBy(contentsMargins(), {metrics.horizontalAdvance(text()) + 2, metrics.height()});
}

QSize Paragraph::minimumSizeHint() const {
    const QFont font = Theme::font(style_);
    return grownBy(contentsMargins(), {longestWord(font, text()), QFontMetrics(font).height()});
}

int Paragraph::heightForWidth(int width) const {
    const QSize margins = grownBy(contentsMargins(), {0, 0});
    return wrappedHeight(Theme::font(style_), text(), width - margins.width()) + margins.height();
}

void Paragraph::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Theme theme = Theme::of(*this);
    painter.setOpacity(isEnabled() ? 1 : metrics::disabledOpacity);
    painter.setFont(Theme::font(style_));
    painter.setPen(theme.color(color_));
    painter.drawText(contentsRect(),
                     static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())) |
                         Qt::TextWordWrap,
                     text());
}

} // namespace calmora
