// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QScrollArea>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <vector>

class QBoxLayout;
class QVBoxLayout;

namespace calmora {

class Paragraph;

/// Rows below each other, with a thin line between the visible ones.
class FormRows : public QWidget {
  public:
    explicit FormRows(QWidget* parent = nullptr);

    /// Adds a row at the end and owns it.
    void addRow(QWidget* row);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QVBoxLayout* rows_;
};

/// A section of a form: a title and below it a card with rows.
class FormSection final : public QWidget {
  public:
    /// An empty title takes no space.
    explicit FormSection(const QString& title, QWidget* parent = nullptr);

    /// Adds a row at the end and owns it.
    void addRow(QWidget* row) { card_->addRow(row); }

    /// Adds a row with a small text that explains.
    Paragraph* addNote(const QString& text);

  private:
    FormRows* card_;
};

/// A row of a form with two parts side by side, or below each other if the row is too narrow for
/// both, as with large text in a language with long words.
class PairRow : public QWidget {
  public:
    explicit PairRow(QWidget* parent = nullptr);

    /// Fills the row, which owns both. The leading part takes the remaining width.
    void setParts(QWidget* leading, QWidget* trailing);

    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

    [[nodiscard]] int heightForWidth(int width) const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    [[nodiscard]] bool fitsBeside(int width) const;

    QBoxLayout* layout_;
    QWidget* leading_ = nullptr;
    QWidget* trailing_ = nullptr;
};

/// A value that a picker offers.
struct PickerOption {
    QString title;
    std::int64_t value = 0;
};

/// A button that shows the current option and opens the list of options, also with Return. The
/// wheel scrolls the form and never changes the option.
class Picker final : public QComboBox {
  public:
    explicit Picker(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    void showPopup() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

/// A row of a form with a title and a picker at its end.
class PickerRow final : public PairRow {
  public:
    /// `onPick` is called when the user picks an option, with its value.
    PickerRow(const QString& title, const std::vector<PickerOption>& options,
              std::function<void(std::int64_t)> onPick, QWidget* parent = nullptr);

    /// Shows the option with this value, or nothing if there is none.
    void setValue(std::int64_t value) {
        picker_->setCurrentIndex(picker_->findData(static_cast<qlonglong>(value)));
    }

    /// The picker of this row.
    [[nodiscard]] QComboBox& picker() { return *picker_; }

  private:
    Picker* picker_;
};

/// A form of sections below each other. It scrolls vertically, also to the control that gets the
/// focus by keyboard.
class Form final : public QScrollArea {
  public:
    explicit Form(QWidget* parent = nullptr);

    /// Adds a section at the end; an empty title takes no space.
    FormSection& addSection(const QString& title = {});

  private:
    QVBoxLayout* sections_;
};

} // namespace calmora
