// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace calmora {

/// The part of a size that fits on the screen of `widget`, beside panels and below a title bar.
[[nodiscard]] QSize boundedByScreen(const QWidget& widget, QSize wanted);

/// Shows one widget, which scrolls vertically where it has less space than it needs.
class ContentArea final : public QScrollArea {
  public:
    /// Owns `content`, which must have a layout.
    explicit ContentArea(QWidget* content, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return widget()->sizeHint(); }

    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] bool hasHeightForWidth() const override { return widget()->hasHeightForWidth(); }

    [[nodiscard]] int heightForWidth(int width) const override {
        return widget()->heightForWidth(width);
    }

  protected:
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace calmora
