// SPDX-License-Identifier: MIT
#include "widgets/ContentArea.h"

#include "widgets/Labels.h"
#include "widgets/Theme.h"

#include <QScreen>
#include <QScrollBar>

#include <algorithm>

namespace calmora {
namespace {

/// About what a window manager puts around a window.
constexpr QSize frame{4, 36};

/// What is always seen of the content.
constexpr Points leastHeight{60};

} // namespace

QSize boundedByScreen(const QWidget& widget, QSize wanted) {
    const QScreen* screen = widget.screen();
    return screen ? wanted.boundedTo(screen->availableGeometry().size() - frame) : wanted;
}

ContentArea::ContentArea(QWidget* content, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(content);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    setHeightForWidth(*this, QSizePolicy::Preferred);
}

QSize ContentArea::minimumSizeHint() const {
    const QSize least = widget()->minimumSizeHint();
    return {least.width(), std::min<int>(least.height(), leastHeight)};
}

void ContentArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    // Only what is longer than the area needs the keyboard to scroll.
    setFocusPolicy(verticalScrollBar()->maximum() > 0 ? Qt::TabFocus : Qt::NoFocus);
}

} // namespace calmora
