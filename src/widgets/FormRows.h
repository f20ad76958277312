#pragma once

#include <QWidget>

class QVBoxLayout;

namespace calmora {

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

} // namespace calmora
