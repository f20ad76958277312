// SPDX-License-Identifier: MIT
#include "widgets/Controls.h"

#include "widgets/Labels.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

constexpr Points symbolGap{4};
constexpr int slideMilliseconds = 120;

/// Everything in a switch's row but its title.
int besideTitle() {
    return 2 * metrics::rowInset + metrics::switchWidth + metrics::rowSpacing;
}

QFont fontOf(const ButtonLook& look) {
    return Theme::font(look.text, look.weight);
}

/// Handles Return and the arrows; false for every other key.
bool handleKey(QAbstractButton& button, QKeyEvent& event) {
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

} // namespace

void changeToolTip(QWidget& widget, const QString& text) {
    const QString before = widget.toolTip();
    if (text == before) {
        return;
    }
    widget.setToolTip(text);
    if (widget.underMouse() && QToolTip::isVisible() && QToolTip::text() == before) {
        QToolTip::showText(QCursor::pos(), text, &widget);
    }
}

Button::Button(const QString& text, ButtonLook look, QWidget* parent)
    : QPushButton(text, parent), look_(std::move(look)) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

Button::Button(const QString& text, TextStyle style, QWidget* parent)
    : Button(text, ButtonLook{.text = style}, parent) {}

void Button::setLook(ButtonLook look) {
    if (look != look_) {
        look_ = std::move(look);
        updateGeometry();
        update();
    }
}

void Button::setWordWrap() {
    setHeightForWidth(*this, QSizePolicy::Maximum);
}

int Button::besideText() const {
    return 2 * (look_.padding.beside + look_.ring) +
           (look_.symbol.isEmpty() ? 0 : Theme::symbolSide(look_.symbolPoints) + symbolGap);
}

QSize Button::sizeHint() const {
    const QFontMetrics font(fontOf(look_));
    return {font.horizontalAdvance(text()) + 2 + besideText(),
            font.height() + 2 * (look_.padding.above + look_.ring)};
}

QSize Button::minimumSizeHint() const {
    const QSize whole = sizeHint();
    return sizePolicy().hasHeightForWidth()
               ? QSize(longestWord(fontOf(look_), text()) + besideText(), whole.height())
               : whole;
}

int Button::heightForWidth(int width) const {
    return wrappedHeight(fontOf(look_), text(), width - besideText()) +
           2 * (look_.padding.above + look_.ring);
}

void Button::keyPressEvent(QKeyEvent* event) {
    if (!handleKey(*this, *event)) {
        QPushButton::keyPressEvent(event);
    }
}

SymbolButton::SymbolButton(QWidget* parent)
    : Button({}, ButtonLook{.face = ButtonLook::Face::none}, parent) {
    setFocusPolicy(Qt::TabFocus);
    setAutoDefault(false);
}

void SymbolButton::setSymbol(const QString& symbol, int points, ThemeColor color) {
    ButtonLook look = this->look();
    look.symbol = symbol;
    look.symbolPoints = points;
    look.symbolColor = color;
    setLook(std::move(look));
}

void SymbolButton::setOpacity(double opacity) {
    ButtonLook look = this->look();
    look.opacity = opacity;
    setLook(std::move(look));
}

QSize SymbolButton::sizeHint() const {
    const int side = Theme::symbolSide(look().symbolPoints) + 2 * metrics::focusRing;
    return {side, side};
}

CheckBox::CheckBox(QWidget* parent) : QCheckBox(parent) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover, false);
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

void CheckBox::keyPressEvent(QKeyEvent* event) {
    if (!handleKey(*this, *event)) {
        QCheckBox::keyPressEvent(event);
    }
}

SwitchRow::SwitchRow(const QString& title, QWidget* parent) : CheckBox(parent) {
    setText(title);
    setFocusPolicy(Qt::StrongFocus);
    setHeightForWidth(*this, QSizePolicy::Preferred);
    knob_.setStartValue(0.0);
    knob_.setEndValue(1.0);
    knob_.setDuration(slideMilliseconds);
    knob_.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&knob_, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(this, &QCheckBox::toggled, this, [this](bool isOn) { slide(isOn); });
}

QSize SwitchRow::sizeHint() const {
    const int title = QFontMetrics(Theme::font(TextStyle::body)).horizontalAdvance(text()) + 2;
    const int width = title + besideTitle();
    return {width, heightForWidth(width)};
}

QSize SwitchRow::minimumSizeHint() const {
    return {longestWord(Theme::font(TextStyle::body), text()) + besideTitle(), metrics::formRow};
}

int SwitchRow::heightForWidth(int width) const {
    const int title = wrappedHeight(Theme::font(TextStyle::body), text(), width - besideTitle());
    return std::max<int>(metrics::formRow, title + 2 * metrics::rowPadding);
}

void SwitchRow::slide(bool isOn) {
    knob_.setDirection(isOn ? QVariantAnimation::Forward : QVariantAnimation::Backward);
    if (isVisible()) {
        knob_.start();
    } else {
        knob_.stop();
        knob_.setCurrentTime(isOn ? slideMilliseconds : 0);
    }
}

} // namespace calmora
