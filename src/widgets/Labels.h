// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"
#include "widgets/Theme.h"

#include <QLabel>
#include <QString>
#include <QWidget>

#include <optional>

namespace calmora {

/// A line of text in a style and colour of the theme, cut at the end where it is too long.
class Label : public QLabel {
  public:
    Label(const QString& text, TextStyle style, ThemeColor color, QWidget* parent = nullptr);

    /// Replaces the weight of the style.
    void setWeight(QFont::Weight weight);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

    /// The font of the style.
    [[nodiscard]] QFont styledFont() const {
        return weight_ ? Theme::font(style_, *weight_) : Theme::font(style_);
    }

    /// Makes the painter draw this text.
    void prepare(QPainter& painter) const;

  private:
    TextStyle style_;
    std::optional<QFont::Weight> weight_;
    ThemeColor color_;
};

/// A text in a style and colour of the theme, wrapped to as many lines as it needs.
class Paragraph final : public Label {
  public:
    Paragraph(const QString& text, TextStyle style, ThemeColor color, QWidget* parent = nullptr);

    /// The size of the text on one line.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A number in a filled, rounded box.
class CountBadge final : public Label {
  public:
    explicit CountBadge(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A symbol in a colour of the theme; screen readers ignore it.
class SymbolView final : public QWidget {
  public:
    SymbolView(const QString& symbol, int points, ThemeColor color, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString symbol_;
    int points_;
    ThemeColor color_;
};

/// An application's icon in a square, or a symbol if there is no icon that can be drawn.
class AppIconView final : public QWidget {
  public:
    AppIconView(const std::optional<Image>& icon, int side, QWidget* parent = nullptr)
        : QWidget(parent), icon_(icon) {
        setFixedSize(side, side);
    }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::optional<Image> icon_;
};

/// A thin horizontal line.
class Divider final : public QWidget {
  public:
    /// `inset` is the space left free at both ends.
    explicit Divider(int inset, QWidget* parent = nullptr) : QWidget(parent), inset_(inset) {
        setFixedHeight(1);
    }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int inset_;
};

/// Sizes a widget by its text, wrapped to its width.
void setHeightForWidth(QWidget& widget, QSizePolicy::Policy horizontal);

/// The height of a text wrapped to a width.
[[nodiscard]] int wrappedHeight(const QFont& font, const QString& text, int width);

/// The width of the longest word of a text.
[[nodiscard]] int longestWord(const QFont& font, const QString& text);

} // namespace calmora
