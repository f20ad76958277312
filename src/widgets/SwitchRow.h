#pragma once

#include <QCheckBox>
#include <QVariantAnimation>

namespace calmora {

/// A row of a form with a title and a switch at its end. A click anywhere in the row, Space and
/// Return toggle the switch.
class SwitchRow final : public QCheckBox {
  public:
    explicit SwitchRow(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

  protected:
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    /// Moves the knob, without animation while hidden.
    void slide(bool isOn);

    /// From 0 (off) to 1 (on).
    QVariantAnimation knob_;
};

} // namespace calmora
