#include "widgets/Controls.h"

#include "widgets/DisplayText.h"
#include "widgets/Pictures.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>

namespace calmora {
namespace {

QRect centred(const QRect& bounds, int side) {
    QRect box(0, 0, side, side);
    box.moveCenter(bounds.center());
    return box;
}

} // namespace

bool handleButtonKey(QAbstractButton& button, QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        button.click();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
        event.ignore();
        return true;
    default:
        return false;
    }
}

CheckBox::CheckBox(QWidget* parent) : QCheckBox(parent) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover, false);
}

void CheckBox::setBox(const QRect& box) {
    box_ = box;
    update();
}

void CheckBox::setOpacity(double opacity) {
    if (opacity != opacity_) {
        opacity_ = opacity;
        update();
    }
}

QSize CheckBox::sizeHint() const {
    const int side = metrics::checkBox + 2 * metrics::focusRing;
    return {side, side};
}

bool CheckBox::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void CheckBox::keyPressEvent(QKeyEvent* event) {
    if (!handleButtonKey(*this, *event)) {
        QCheckBox::keyPressEvent(event);
    }
}

void CheckBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(opacity_);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect = box_.isNull() ? centred(rect(), metrics::checkBox) : box_;
    style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter, this);
    if (showsFocus(*this)) {
        drawFocusRing(painter, option.rect, metrics::badgeRadius, Theme::of(*this));
    }
}

SymbolButton::SymbolButton(QWidget* parent) : QPushButton(parent) {
    setFocusPolicy(Qt::TabFocus);
    setAutoDefault(false);
    setAttribute(Qt::WA_Hover);
}

void SymbolButton::setSymbol(const QString& symbol, int points, ThemeColor color) {
    if (symbol != symbol_ || points != points_ || color != color_) {
        symbol_ = symbol;
        points_ = points;
        color_ = color;
        update();
    }
}

void SymbolButton::setBox(const QRect& box) {
    box_ = box;
    update();
}

void SymbolButton::setOpacity(double opacity) {
    if (opacity != opacity_) {
        opacity_ = opacity;
        update();
    }
}

QSize SymbolButton::sizeHint() const {
    const int side = Theme::symbolSide(points_) + 2 * metrics::focusRing;
    return {side, side};
}

void SymbolButton::keyPressEvent(QKeyEvent* event) {
    if (!handleButtonKey(*this, *event)) {
        QPushButton::keyPressEvent(event);
    }
}

void SymbolButton::paintEvent(QPaintEvent*) {
    const Theme theme = Theme::of(*this);
    const int side = Theme::symbolSide(points_);
    const QRect box = box_.isNull() ? centred(rect(), side) : box_;
    QPainter painter(this);
    painter.setOpacity(isDown() ? opacity_ * 0.6 : opacity_);
    const bool lit = underMouse() && isEnabled() && color_ != ThemeColor::red;
    drawSymbol(painter, box, symbol_, side, theme.color(lit ? ThemeColor::primary : color_));
    if (showsFocus(*this)) {
        drawFocusRing(painter, box, side / 2.0, theme);
    }
}

Label::Label(TextStyle style, QFont::Weight weight, ThemeColor color, QWidget* parent)
    : QLabel(parent), style_(style), weight_(weight), color_(color) {
    setTextFormat(Qt::PlainText);
}

QFont Label::styledFont() const {
    return Theme::font(style_, weight_);
}

QSize Label::sizeHint() const {
    const QFontMetrics metrics(styledFont());
    return {metrics.horizontalAdvance(text()) + 1, metrics.height()};
}

QSize Label::minimumSizeHint() const {
    return {0, sizeHint().height()};
}

void Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QFont font = styledFont();
    painter.setFont(font);
    painter.setPen(Theme::of(*this).color(color_));
    drawLine(painter, rect(), QFontMetrics(font).elidedText(text(), Qt::ElideRight, width()),
             LineEnd::leading, layoutDirection());
}

Divider::Divider(QWidget* parent, int inset) : QWidget(parent), inset_(inset) {
    setFixedHeight(1);
}

void Divider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect().adjusted(inset_, 0, -inset_, 0),
                     Theme::of(*this).color(ThemeColor::separator));
}

} // namespace calmora
