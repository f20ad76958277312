#pragma once

#include "widgets/Theme.h"

#include <QLabel>

namespace calmora {

/// A text in a style and colour of the theme, wrapped to as many lines as it needs.
class Paragraph final : public QLabel {
  public:
    Paragraph(const QString& text, TextStyle style, ThemeColor color, QWidget* parent = nullptr);

    /// The size of the text on one line.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    TextStyle style_;
    ThemeColor color_;
};

/// The height of a text wrapped to a width.
[[nodiscard]] int wrappedHeight(const QFont& font, const QString& text, int width);

/// The width of the longest word of a text.
[[nodiscard]] int longestWord(const QFont& font, const QString& text);

} // namespace calmora
