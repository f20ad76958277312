#pragma once

#include "widgets/FormRows.h"

#include <QString>
#include <QWidget>

namespace calmora {

/// A section of a form: a title and below it a card with rows.
class FormSection final : public QWidget {
  public:
    /// An empty title takes no space.
    explicit FormSection(const QString& title, QWidget* parent = nullptr);

    /// Adds a row at the end and owns it.
    void addRow(QWidget* row) { card_->addRow(row); }

  private:
    FormRows* card_;
};

} // namespace calmora
