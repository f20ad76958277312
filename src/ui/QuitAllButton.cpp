// SPDX-License-Identifier: MIT
#include "ui/QuitAllButton.h"

#include "widgets/DisplayText.h"

#include <QEvent>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace calmora {
namespace {

constexpr Points faceHeight{36};
constexpr Points leastWidth{200};
constexpr double pressedScale = 0.96;
constexpr int scaleMilliseconds = 100;
constexpr int farthestMove = 10;

} // namespace

QuitAllButton::QuitAllButton(QWidget* parent)
    : Button(uiText("Quit All"),
             {.face = ButtonLook::Face::teal,
              .text = TextStyle::headline,
              .weight = QFont::DemiBold,
              .padding = {{8}, {0}},
              .radius = metrics::buttonRadius,
              .ring = metrics::focusRing},
             parent) {
    setObjectName("quitAll");
    setAutoDefault(false);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    scale_.setDuration(scaleMilliseconds);
    scale_.setEasingCurve(QEasingCurve::InOutQuad);
    scale_.setStartValue(1.0);
    scale_.setEndValue(pressedScale);
    connect(&scale_, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

void QuitAllButton::setForceQuit(bool isForceQuit) {
    if (isForceQuit != this->isForceQuit()) {
        ButtonLook look = this->look();
        look.face = isForceQuit ? ButtonLook::Face::red : ButtonLook::Face::teal;
        setLook(std::move(look));
        setText(uiText(isForceQuit ? "Force Quit All" : "Quit All"));
    }
}

QSize QuitAllButton::sizeHint() const {
    return {std::max<int>(leastWidth, Button::sizeHint().width() - 2),
            faceHeight + 2 * metrics::focusRing};
}

bool QuitAllButton::hitButton(const QPoint& position) const {
    const int ring = metrics::focusRing;
    return rect().adjusted(ring, ring, -ring, -ring).contains(position);
}

void QuitAllButton::setPressed(bool pressed) {
    if (pressed == isQuitAllPressed_) {
        return;
    }
    isQuitAllPressed_ = pressed;
    scale_.setDirection(pressed ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    if (scale_.state() != QAbstractAnimation::Running) {
        scale_.start();
    }
}

void QuitAllButton::mousePressEvent(QMouseEvent* event) {
    QPushButton::mousePressEvent(event);
    if (isDown()) {
        pressedAt_ = event->pos();
        setPressed(true);
    }
}

void QuitAllButton::mouseMoveEvent(QMouseEvent* event) {
    QPushButton::mouseMoveEvent(event);
    const QPoint moved = event->pos() - pressedAt_;
    if (!isDown() || QPoint::dotProduct(moved, moved) > farthestMove * farthestMove) {
        setPressed(false);
    }
}

void QuitAllButton::mouseReleaseEvent(QMouseEvent* event) {
    setPressed(false);
    QPushButton::mouseReleaseEvent(event);
}

void QuitAllButton::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        setPressed(false);
    }
    QPushButton::changeEvent(event);
}

double QuitAllButton::scale() const {
    return scale_.state() == QAbstractAnimation::Running ? scale_.currentValue().toDouble()
           : isQuitAllPressed_                           ? pressedScale
                                                         : 1.0;
}

} // namespace calmora
