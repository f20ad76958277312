// SPDX-License-Identifier: MIT
#include "platform/qt/window/TransientFrame.h"

#include "platform/qt/window/PixelGrid.h"
#include "widgets/Theme.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <QWindow>

#include <utility>

namespace calmora {

namespace {

/// Space for the shadow, and how far it is shifted down.
constexpr int shadowReach = 18;
constexpr int shadowDrop = 3;
constexpr double cornerRadius = 12;
constexpr int edge = 1;

void paintShadow(QPainter& painter, const QRectF& bounds) {
    painter.setPen(Qt::NoPen);
    // Thin layers that add up: dense at the edge, transparent at the reach.
    for (int ring = shadowReach; ring > 0; --ring) {
        const double strength = 1.0 - static_cast<double>(ring) / shadowReach;
        painter.setBrush(QColor(0, 0, 0, static_cast<int>(7 * strength * strength) + 1));
        const double spread = ring - 1;
        painter.drawRoundedRect(
            bounds.adjusted(-spread, -spread, spread, spread).translated(0, shadowDrop),
            cornerRadius + spread, cornerRadius + spread);
    }
}

} // namespace

TransientFrame::TransientFrame(TransientWindows& windows, QAccessible::Role role)
    : QWidget(nullptr, windows.transientFlags()), ModalWindow(role), windows_(windows) {
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAutoFillBackground(false);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(edge, edge, edge, edge);
}

void TransientFrame::setBody(std::unique_ptr<QWidget> body) {
    layout()->addWidget(body.release());
}

void TransientFrame::showAt(const QRect& bounds) {
    setFloating(windows_.isComposited());
    setBounds(bounds);
    windows_.prepare(*this, this->bounds());
    show();
    // Otherwise everything is painted twice: on exposure and because of show().
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    if (isFloating_ && windowHandle()) {
        const qreal scale = devicePixelRatio();
        const QRect inner = this->bounds();
        windows_.setInputArea(*windowHandle(), QRectF(inner.x() * scale, inner.y() * scale,
                                                      inner.width() * scale, inner.height() * scale)
                                                   .toAlignedRect());
    }
}

void TransientFrame::setBounds(const QRect& bounds) {
    const int around = margin();
    setGeometry(bounds.adjusted(-around, -around, around, around));
}

void TransientFrame::setFloating(bool isFloating) {
    if (std::exchange(isFloating_, isFloating) == isFloating && windowHandle()) {
        return;
    }
    // Translucency is fixed when a window is created.
    destroy();
    setAttribute(Qt::WA_TranslucentBackground, isFloating_);
    const int around = margin() + edge;
    layout()->setContentsMargins(around, around, around, around);
}

int TransientFrame::margin() const {
    return isFloating_ ? shadowReach : 0;
}

QRect TransientFrame::bounds() const {
    const int around = margin();
    return rect().adjusted(around, around, -around, -around);
}

bool TransientFrame::event(QEvent* event) {
    if (event->type() == QEvent::WinIdChange && windowHandle()) {
        windowHandle()->installEventFilter(this);
    }
    return QWidget::event(event);
}

bool TransientFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == windowHandle() && event->type() == QEvent::MouseButtonPress && onPress_) {
        onPress_();
    }
    return QWidget::eventFilter(watched, event);
}

void TransientFrame::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && onEscape_) {
        // The action may end this frame.
        const auto action = onEscape_;
        action();
        return;
    }
    QWidget::keyPressEvent(event);
}

void TransientFrame::mendEdges(const QRegion& painted) {
    // Qt clears a translucent window up to the next device pixel and paints up to the nearest one,
    // which leaves a transparent line where the edge of the region is between two.
    const std::optional<int> step = wholePixelStep(devicePixelRatioF());
    const QRegion aligned = step ? alignedRegion(painted, *step, rect()) : QRegion(rect());
    if (aligned != painted) {
        update(aligned);
    }
}

void TransientFrame::paintEvent(QPaintEvent* event) {
    const Theme theme = Theme::of(*this);
    QPainter painter(this);
    const QRect inner = bounds();
    if (!isFloating_) {
        painter.fillRect(event->rect(), palette().window());
        painter.setPen(theme.color(ThemeColor::controlBorder));
        painter.drawRect(inner.adjusted(0, 0, -1, -1));
        return;
    }
    mendEdges(event->region());
    const int inset = static_cast<int>(cornerRadius);
    const bool isInside = inner.adjusted(edge, inset, -edge, -inset).contains(event->rect());
    if (isInside) {
        // Only a row is repainted: no edge, no corner.
        painter.fillRect(event->rect(), palette().window());
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(event->rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    // Many layers, so only where they are visible.
    painter.setClipRegion(QRegion(event->rect()) - inner.adjusted(inset, edge, -inset, -edge) -
                          inner.adjusted(edge, inset, -edge, -inset));
    paintShadow(painter, inner);
    painter.setClipping(false);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().window());
    painter.drawRoundedRect(inner, cornerRadius, cornerRadius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(theme.color(ThemeColor::separator), 1));
    painter.drawRoundedRect(QRectF(inner).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius,
                            cornerRadius);
}

} // namespace calmora
