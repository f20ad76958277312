// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Controls.h"

#include <QLineEdit>
#include <QWidget>

namespace calmora {

/// The search field with its symbol and, while there is text, a button that clears it.
class SearchBox final : public QWidget {
  public:
    explicit SearchBox(QWidget* parent = nullptr);

    /// Where the text is typed.
    [[nodiscard]] QLineEdit& field() { return *field_; }

    /// Sets the text to the empty one; hidden while it is empty.
    [[nodiscard]] QPushButton& clearButton() { return *clear_; }

  protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    void mousePressEvent(QMouseEvent*) override { field_->setFocus(Qt::MouseFocusReason); }

    void paintEvent(QPaintEvent* event) override;

  private:
    void applyTheme();

    QLineEdit* field_;
    SymbolButton* clear_;
};

} // namespace calmora
