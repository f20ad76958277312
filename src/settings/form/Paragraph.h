#pragma once

#include "theme/Theme.h"

#include <QLabel>

namespace calmora {

/// A text in a style and colour of the theme that is broken into as many lines as it needs.
class Paragraph final : public QLabel {
  public:
    Paragraph(const QString& text, TextStyle style, ThemeColor color, QWidget* parent = nullptr);

    /// The widest that it wants to be is the text on one line.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    TextStyle style_;
    ThemeColor color_;
};

/// The height of a text that is broken to fit a width.
[[nodiscard]] int wrappedHeight(const QFont& font, const QString& text, int width);

/// The width of the longest word of a text.
[[nodiscard]] int longestWord(const QFont& font, const QString& text);

} // namespace calmora
