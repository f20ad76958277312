#pragma once

#include "platform/Alerts.h"

#include <QWidget>

#include <functional>

namespace calmora {

/// The content of an alert: picture, message, explanation, buttons. The first button is outermost.
class AlertPanel final : public QWidget {
  public:
    /// `onAnswer` is called with the index of the chosen button.
    AlertPanel(const Alert& alert, const Image& icon, std::function<void(std::size_t)> onAnswer);

    /// Focuses the default button.
    void focusDefaultButton();

  private:
    QWidget* defaultButton_ = nullptr;
};

} // namespace calmora
