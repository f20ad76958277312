#pragma once

#include "platform/Platform.h"

#include <QDialog>

namespace calmora {

class AppSettings;

/// The sheet that lists the running applications and puts any of them on the never-quit list. It
/// hangs from the top of its window, which waits until it is closed; it stays open while
/// applications are added. Escape closes it.
class AddAppSheet final : public QDialog {
  public:
    /// Lists what runs now. `settings` and the platform must outlive the sheet; `window` is the
    /// one that it hangs from.
    AddAppSheet(AppSettings& settings, const Platform& platform, QWidget* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void hang();
};

} // namespace calmora
