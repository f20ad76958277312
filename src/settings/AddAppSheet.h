// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"

#include <QDialog>

namespace calmora {

class AppSettings;

/// The sheet that lists the running applications and adds any of them to the never-quit list. It
/// is attached to the top of its window and blocks it until closed. It stays open while
/// applications are added; Escape closes it.
class AddAppSheet final : public QDialog {
  public:
    /// Lists the applications that are running now. `settings` and the platform must outlive the
    /// sheet; `window` is the window that it is attached to.
    AddAppSheet(AppSettings& settings, const Platform& platform, QWidget* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void moveToTopOfWindow();
};

} // namespace calmora
