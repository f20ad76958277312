#pragma once

#include "widgets/Metrics.h"
#include "widgets/Theme.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

class QKeyEvent;

namespace calmora {

/// Handles the keys that mean the same for every button: Return presses it, and the arrows are
/// left to the list or form around it. Qt would move the focus with them, for example into a
/// picker, whose value the next press would change. False for every other key.
[[nodiscard]] bool handleButtonKey(QAbstractButton& button, QKeyEvent& event);

/// A check box that shows what it is told: a click only reports itself (`clicked`), the new state
/// comes back through setChecked(). The box may be smaller than the area that takes clicks.
class CheckBox : public QCheckBox {
  public:
    explicit CheckBox(QWidget* parent = nullptr);

    /// Where the box is drawn, in the widget's coordinates; the middle by default.
    void setBox(const QRect& box);

    /// Draws everything fainter; 1 by default.
    void setOpacity(double opacity);

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void nextCheckState() override {}

    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QRect box_;
    double opacity_ = 1;
};

/// A plain button that is one symbol. The symbol may be smaller than the area that takes clicks.
class SymbolButton : public QPushButton {
  public:
    explicit SymbolButton(QWidget* parent = nullptr);

    /// What is drawn: a symbol of `points` in a colour. `name` is also what screen readers say.
    void setSymbol(const QString& symbol, int points, ThemeColor color);

    /// Where the symbol is drawn, in the widget's coordinates; the middle by default.
    void setBox(const QRect& box);

    /// Draws everything fainter; 1 by default.
    void setOpacity(double opacity);

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QString symbol_;
    int points_ = 16;
    ThemeColor color_ = ThemeColor::secondary;
    QRect box_;
    double opacity_ = 1;
};

/// A line of text in a style and colour of the theme, cut at the end where it is too long.
class Label : public QLabel {
  public:
    Label(TextStyle style, QFont::Weight weight, ThemeColor color, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QFont styledFont() const;

    TextStyle style_;
    QFont::Weight weight_;
    ThemeColor color_;
};

/// A thin horizontal line.
class Divider : public QWidget {
  public:
    /// `inset` is the space left free at both ends.
    explicit Divider(QWidget* parent = nullptr, int inset = metrics::inset);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int inset_;
};

} // namespace calmora
