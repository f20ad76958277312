#include "ui/QuitAllButton.h"

#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Metrics.h"
#include "widgets/Theme.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace calmora {
namespace {

constexpr int faceHeight = 36;
constexpr int leastWidth = 200;
/// Left and right of the text, together.
constexpr int textInset = 16;
constexpr double pressedScale = 0.96;
constexpr int scaleMilliseconds = 100;
constexpr int farthestMove = 10;

} // namespace

QuitAllButton::QuitAllButton(QWidget* parent) : QPushButton(parent) {
    setObjectName("quitAll");
    setAutoDefault(false);
    setFocusPolicy(Qt::TabFocus);
    setText(uiText("Quit All"));
    scale_.setDuration(scaleMilliseconds);
    scale_.setEasingCurve(QEasingCurve::InOutQuad);
    scale_.setStartValue(1.0);
    scale_.setEndValue(pressedScale);
    connect(&scale_, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

void QuitAllButton::setForceQuit(bool isForceQuit) {
    if (isForceQuit != isForceQuit_) {
        isForceQuit_ = isForceQuit;
        setText(uiText(isForceQuit ? "Force Quit All" : "Quit All"));
        update();
    }
}

QSize QuitAllButton::sizeHint() const {
    const int text = QFontMetrics(Theme::font(TextStyle::headline)).horizontalAdvance(this->text());
    return {std::max(leastWidth, text + textInset + 2 * metrics::focusRing),
            faceHeight + 2 * metrics::focusRing};
}

QRect QuitAllButton::face() const {
    constexpr int ring = metrics::focusRing;
    return rect().adjusted(ring, ring, -ring, -ring);
}

bool QuitAllButton::hitButton(const QPoint& position) const {
    return face().contains(position);
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

void QuitAllButton::keyPressEvent(QKeyEvent* event) {
    if (!handleButtonKey(*this, *event)) {
        QPushButton::keyPressEvent(event);
    }
}

void QuitAllButton::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        setPressed(false);
    }
    QPushButton::changeEvent(event);
}

void QuitAllButton::paintEvent(QPaintEvent*) {
    const Theme theme = Theme::of(*this);
    const QRectF bounds = face();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled()) {
        painter.setOpacity(metrics::disabledOpacity);
    }
    const double scale = scale_.state() == QAbstractAnimation::Running
                             ? scale_.currentValue().toDouble()
                             : (isQuitAllPressed_ ? pressedScale : 1.0);
    painter.translate(bounds.center());
    painter.scale(scale, scale);
    painter.translate(-bounds.center());
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.buttonFace(bounds, isForceQuit_));
    painter.drawRoundedRect(bounds, metrics::buttonRadius, metrics::buttonRadius);
    painter.setPen(theme.color(ThemeColor::onAccent));
    painter.setFont(Theme::font(TextStyle::headline));
    painter.drawText(bounds, Qt::AlignCenter,
                     painter.fontMetrics().elidedText(
                         text(), Qt::ElideRight, static_cast<int>(bounds.width()) - textInset));
    if (showsFocus(*this)) {
        drawFocusRing(painter, bounds, metrics::buttonRadius, theme);
    }
}

} // namespace calmora
