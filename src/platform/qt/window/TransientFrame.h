// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/window/TransientWindows.h"
#include "widgets/ModalWindow.h"

#include <QWidget>

#include <functional>

namespace calmora {

/// The frame of popover and alert: a window without title bar. With a compositor it has round
/// corners and a shadow, without one a plain edge.
class TransientFrame : public QWidget, public ModalWindow {
  public:
    /// `role` is what assistive technologies call the window.
    TransientFrame(TransientWindows& windows, QAccessible::Role role);

    /// The frame's content.
    void setBody(std::unique_ptr<QWidget> body);

    /// Shows the body at `bounds`, on the virtual screen; shadow and edge surround it.
    void showAt(const QRect& bounds);

    /// Moves and resizes the body.
    void setBounds(const QRect& bounds);

    /// Called when Escape is pressed and the body does not use it.
    void setOnEscape(std::function<void()> action) { onEscape_ = std::move(action); }

    /// Called when a mouse button goes down in the frame, before the body gets the event.
    void setOnPress(std::function<void()> action) { onPress_ = std::move(action); }

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void setFloating(bool isFloating);
    /// Paints again what lies around a painted region up to whole device pixels.
    void mendEdges(const QRegion& painted);
    [[nodiscard]] int margin() const;
    [[nodiscard]] QRect bounds() const;

    TransientWindows& windows_;
    std::function<void()> onEscape_;
    std::function<void()> onPress_;
    /// Drawn with shadow and round corners.
    bool isFloating_ = false;
};

} // namespace calmora
