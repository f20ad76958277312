#pragma once

#include "widgets/Form.h"

#include <QComboBox>
#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

namespace calmora {

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
    void setValue(std::int64_t value);

    /// The picker of this row.
    [[nodiscard]] QComboBox& picker() { return *picker_; }

  private:
    Picker* picker_;
};

} // namespace calmora
