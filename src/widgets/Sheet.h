// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/ModalWindow.h"

#include <QDialog>
#include <QPointer>

namespace calmora {

/// A dialog that belongs to a window: it stands in the upper part of the window, which it follows,
/// blocks and dims. Escape closes it. Without a window it blocks the program.
class Sheet : public QDialog, public ModalWindow {
  public:
    /// The window, which may be absent, owns the sheet. `role` is what assistive technologies call
    /// it.
    Sheet(QWidget* window, QAccessible::Role role);
    ~Sheet() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void follow();

    /// Lies over the window while the sheet is shown.
    QPointer<QWidget> veil_;
};

} // namespace calmora
