#pragma once

#include "widgets/Theme.h"

#include <QPushButton>
#include <QString>

namespace calmora {

/// A small button with an outline, a text and an optional symbol before the text.
class BorderedButton final : public QPushButton {
  public:
    BorderedButton(const QString& text, TextStyle style, QWidget* parent = nullptr);

    /// Sets the name of the symbol; empty means none.
    void setSymbol(const QString& symbol);

    /// Wraps the text if it does not fit on one line.
    void setWordWrap();

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] int symbolSide() const;
    /// The width of everything but the text.
    [[nodiscard]] int besideText() const;

    TextStyle style_;
    QString symbol_;
};

} // namespace calmora
