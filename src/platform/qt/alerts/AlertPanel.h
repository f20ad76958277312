#pragma once

#include "platform/Alerts.h"

#include <QWidget>

#include <functional>

namespace calmora {

/// What an alert shows: picture, message, explanation, buttons. The first button stands outermost.
class AlertPanel final : public QWidget {
  public:
    /// `onAnswer` is told the index of the chosen button.
    AlertPanel(const Alert& alert, const Image& icon, std::function<void(std::size_t)> onAnswer);

    /// Gives the keyboard to the default button.
    void focusDefaultButton();

  private:
    QWidget* defaultButton_ = nullptr;
};

} // namespace calmora
