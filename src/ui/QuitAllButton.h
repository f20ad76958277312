// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Controls.h"

#include <QVariantAnimation>

namespace calmora {

/// The large button that quits everything ticked: teal, or red in force mode. It shrinks a little
/// while the pointer holds it down.
class QuitAllButton final : public Button {
  public:
    explicit QuitAllButton(QWidget* parent = nullptr);

    /// Force mode: other text, other colour.
    void setForceQuit(bool isForceQuit);

    /// The mode that the button shows.
    [[nodiscard]] bool isForceQuit() const { return look().face == ButtonLook::Face::red; }

    [[nodiscard]] double scale() const override;
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void changeEvent(QEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void setPressed(bool pressed);

    /// Whether the pointer holds the button down.
    bool isQuitAllPressed_ = false;
    QPoint pressedAt_;
    QVariantAnimation scale_;
};

} // namespace calmora
