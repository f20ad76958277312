// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Theme.h"

#include <QCheckBox>
#include <QPushButton>
#include <QString>
#include <QVariantAnimation>

namespace calmora {

/// Gives a widget another tool tip; one that is on screen for it changes at once.
void changeToolTip(QWidget& widget, const QString& text);

/// How the style draws a Button. By default it is small, with an outline.
struct ButtonLook {
    /// What fills the button.
    enum class Face { none, outline, teal, red };
    Face face = Face::outline;
    TextStyle text = TextStyle::body;
    QFont::Weight weight = QFont::Medium;

    /// Free space beside and above a text.
    struct Padding {
        Points beside;
        Points above;

        friend bool operator==(const Padding&, const Padding&) = default;
    };

    /// Around the text, inside the face.
    Padding padding{{10}, {4}};
    Points radius = metrics::rowRadius;
    /// Left free around the face for the focus ring; 0 draws the ring inside.
    Points ring{0};
    /// Shows the focus also where it came by pointer.
    bool showsEveryFocus = false;
    /// The name of a symbol before the text; empty means none.
    QString symbol = {};
    int symbolPoints = 9;
    /// Of a symbol without a face.
    ThemeColor symbolColor = ThemeColor::secondary;
    double opacity = 1;

    friend bool operator==(const ButtonLook&, const ButtonLook&) = default;
};

/// A push button that the style draws as its look says. Return presses it, and the arrows are left
/// to the list or form around it: Qt would move the focus with them, for example into a picker,
/// whose value the next press would change.
class Button : public QPushButton {
  public:
    Button(const QString& text, ButtonLook look, QWidget* parent = nullptr);
    /// A small button with an outline.
    Button(const QString& text, TextStyle style, QWidget* parent = nullptr);

    [[nodiscard]] const ButtonLook& look() const { return look_; }

    /// Repaints if the look differs.
    void setLook(ButtonLook look);

    /// Wraps the text if it does not fit on one line.
    void setWordWrap();

    /// The size of the face; less than 1 while it is pressed, if the button shrinks then.
    [[nodiscard]] virtual double scale() const { return 1; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    /// The width of everything but the text.
    [[nodiscard]] int besideText() const;

    ButtonLook look_;
};

/// A button that is one symbol. The symbol may be smaller than the area that takes clicks.
class SymbolButton final : public Button {
  public:
    explicit SymbolButton(QWidget* parent = nullptr);

    void setSymbol(const QString& symbol, int points, ThemeColor color);

    /// Draws everything fainter; 1 by default.
    void setOpacity(double opacity);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

/// A check box that shows what it is told: a click only reports itself (`clicked`), the new state
/// comes back through setChecked(). All of the widget takes clicks. Keys as for a Button.
class CheckBox : public QCheckBox {
  public:
    explicit CheckBox(QWidget* parent = nullptr);

    /// Draws everything fainter; 1 by default.
    void setOpacity(double opacity);

    [[nodiscard]] double opacity() const { return opacity_; }

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void nextCheckState() override {}

    [[nodiscard]] bool hitButton(const QPoint& position) const override {
        return rect().contains(position);
    }

    void keyPressEvent(QKeyEvent* event) override;

  private:
    double opacity_ = 1;
};

/// A row of a form with a title and a switch at its end. A click anywhere in the row, Space and
/// Return report themselves, as with a CheckBox.
class SwitchRow final : public CheckBox {
  public:
    explicit SwitchRow(const QString& title, QWidget* parent = nullptr);

    /// Where the knob is, from 0 (off) to 1 (on).
    [[nodiscard]] double knob() const { return knob_.currentValue().toDouble(); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

  private:
    /// Moves the knob, without animation while hidden.
    void slide(bool isOn);

    QVariantAnimation knob_;
};

} // namespace calmora
