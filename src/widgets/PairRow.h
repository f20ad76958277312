#pragma once

#include <QWidget>

class QBoxLayout;

namespace calmora {

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

} // namespace calmora
