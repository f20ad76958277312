#include "widgets/BorderedButton.h"

#include "widgets/Controls.h"
#include "widgets/FormMetrics.h"
#include "widgets/Paragraph.h"
#include "widgets/Pictures.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

namespace calmora {
namespace {

constexpr int sideInset = 10;
constexpr int verticalPadding = 4;
constexpr int symbolGap = 4;
constexpr int symbolPoints = 9;

QFont fontOf(TextStyle style) {
    return Theme::font(style, QFont::Medium);
}

} // namespace

BorderedButton::BorderedButton(const QString& text, TextStyle style, QWidget* parent)
    : QPushButton(text, parent), style_(style) {
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void BorderedButton::setWordWrap() {
    QSizePolicy policy(QSizePolicy::Maximum, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void BorderedButton::setSymbol(const QString& symbol) {
    symbol_ = symbol;
    updateGeometry();
    update();
}

int BorderedButton::symbolSide() const {
    return symbol_.isEmpty() ? 0 : Theme::symbolSide(symbolPoints);
}

int BorderedButton::besideText() const {
    return 2 * sideInset + (symbol_.isEmpty() ? 0 : symbolSide() + symbolGap);
}

QSize BorderedButton::sizeHint() const {
    const QFontMetrics font(fontOf(style_));
    return {font.horizontalAdvance(text()) + 2 + besideText(), font.height() + 2 * verticalPadding};
}

QSize BorderedButton::minimumSizeHint() const {
    const QSize whole = sizeHint();
    return sizePolicy().hasHeightForWidth()
               ? QSize(longestWord(fontOf(style_), text()) + besideText(), whole.height())
               : whole;
}

int BorderedButton::heightForWidth(int width) const {
    return wrappedHeight(fontOf(style_), text(), width - besideText()) + 2 * verticalPadding;
}

void BorderedButton::keyPressEvent(QKeyEvent* event) {
    if (!handleButtonKey(*this, *event)) {
        QPushButton::keyPressEvent(event);
    }
}

void BorderedButton::paintEvent(QPaintEvent*) {
    const Theme theme = Theme::of(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : metrics::disabledOpacity);
    const QRectF face = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(theme.color(ThemeColor::controlBorder));
    painter.setBrush(theme.color(ThemeColor::controlFace));
    painter.drawRoundedRect(face, metrics::buttonCorner, metrics::buttonCorner);
    if (isDown() || (underMouse() && isEnabled())) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.color(ThemeColor::fill));
        for (int pass = 0; pass < (isDown() ? 2 : 1); ++pass) {
            painter.drawRoundedRect(face, metrics::buttonCorner, metrics::buttonCorner);
        }
    }

    const Qt::LayoutDirection direction = layoutDirection();
    QRect label = rect().adjusted(sideInset, 0, -sideInset, 0);
    if (!symbol_.isEmpty()) {
        const int side = symbolSide();
        const QRect place(label.x(), 0, side, height());
        drawSymbol(painter, QStyle::visualRect(direction, rect(), place), symbol_, side,
                   theme.color(ThemeColor::primary));
        label.setLeft(label.left() + side + symbolGap);
    }
    painter.setFont(fontOf(style_));
    painter.setPen(theme.color(ThemeColor::primary));
    painter.drawText(QStyle::visualRect(direction, rect(), label),
                     Qt::AlignCenter | Qt::TextWordWrap, text());
    if (showsFocus(*this)) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(theme.color(ThemeColor::focusRing), 2));
        painter.drawRoundedRect(face.adjusted(0.5, 0.5, -0.5, -0.5), metrics::buttonCorner,
                                metrics::buttonCorner);
    }
}

} // namespace calmora
