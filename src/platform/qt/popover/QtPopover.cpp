// SPDX-License-Identifier: MIT
#include "platform/qt/popover/QtPopover.h"

#include "widgets/Theme.h"

#include <QApplication>
#include <QCursor>
#include <QTimer>

#include <utility>

namespace calmora {

namespace {

QRect toQRect(const Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

} // namespace

QtPopover::QtPopover(TransientWindows& windows, AlertSession& alerts)
    : windows_(windows), alerts_(alerts), frame_(windows, QAccessible::Dialog) {
    frame_.setObjectName("popover");
    frame_.setWindowTitle("Calmora");
    frame_.setOnEscape([this] { performClose(); });
    alertChanges_ = alerts_.onChanged([this](bool isOpen) {
        if (!isOpen && focus_) {
            // The alert is about to give the focus back.
            QTimer::singleShot(0, &frame_, [this] {
                if (focus_) {
                    focus_->check();
                }
            });
        }
    });
}

QtPopover::~QtPopover() = default;

void QtPopover::setContent(std::unique_ptr<QWidget> content) {
    frame_.setBody(std::move(content));
}

void QtPopover::setContentSize(Size size) {
    contentSize_ = size;
}

void QtPopover::show(std::optional<Rect> anchor) {
    if (focus_ || alerts_.isOpen() || !reopening_.hasExpired()) {
        return;
    }
    // A menu of ours that is open would keep the focus.
    for (QWidget* menu = QApplication::activePopupWidget(); menu && menu->close();
         menu = QApplication::activePopupWidget()) {
    }
    const PopoverSurroundings surroundings = windows_.popoverSurroundings(anchor);
    if (surroundings.screens.empty()) {
        return;
    }
    willShow_.emit();
    anchor_ = surroundings.icon;
    const Size size{Points{contentSize_.width}, Points{contentSize_.height}};
    bounds_ = placePopover(size, anchor_, surroundings.screens);
    frame_.showAt(toQRect(bounds_));
    focus_ = windows_.grabFocus(
        *frame_.windowHandle(), [this] { return alerts_.isOpen(); },
        [this](Leaving how) { userLeft(how); });
}

void QtPopover::performClose() {
    // Stays behind an alert, also when a panel reports a click.
    if (!focus_ || alerts_.isOpen()) {
        return;
    }
    // Before hiding: a hidden window could not pass the focus on.
    focus_.reset();
    frame_.hide();
    didClose_.emit();
}

void QtPopover::userLeft(Leaving how) {
    if (how == Leaving::covered) {
        return; // Only an alert stays on top.
    }
    if (how == Leaving::turnedAway && holds_()) {
        return;
    }
    if (how == Leaving::pressedOutside && anchor_ && toQRect(*anchor_).contains(QCursor::pos())) {
        return; // The icon's own action follows.
    }
    reopening_.setRemainingTime(reopenDelay);
    performClose();
}

Subscription QtPopover::onWillShow(std::function<void()> handler) {
    return willShow_.connect(std::move(handler));
}

Subscription QtPopover::onDidClose(std::function<void()> handler) {
    return didClose_.connect(std::move(handler));
}

} // namespace calmora
