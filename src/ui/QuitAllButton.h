#pragma once

#include <QPushButton>
#include <QVariantAnimation>

#include <functional>

namespace calmora {

/// The large button that quits everything ticked: teal, or red in force mode. It shrinks a little
/// while the pointer holds it down.
class QuitAllButton final : public QPushButton {
  public:
    explicit QuitAllButton(QWidget* parent = nullptr);

    /// Force mode: other text, other colour.
    void setForceQuit(bool isForceQuit);

    /// The mode that the button shows.
    [[nodiscard]] bool isForceQuit() const { return isForceQuit_; }

    /// Whether the pointer holds the button down.
    [[nodiscard]] bool isQuitAllPressed() const { return isQuitAllPressed_; }

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void changeEvent(QEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void setPressed(bool pressed);
    [[nodiscard]] QRect face() const;

    bool isForceQuit_ = false;
    bool isQuitAllPressed_ = false;
    QPoint pressedAt_;
    QVariantAnimation scale_;
};

} // namespace calmora
