#pragma once

#include <QLabel>

namespace calmora {

/// A number in a filled, rounded box.
class CountBadge final : public QLabel {
  public:
    explicit CountBadge(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace calmora
