// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Alerts.h"

#include <QSize>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <functional>
#include <string>

namespace calmora {

/// The content of every alert: picture, message, explanation, buttons. The first button is
/// outermost.
class AlertPanel final : public QWidget {
  public:
    /// `onAnswer` is called with the index of the chosen button.
    AlertPanel(const Alert& alert, const Image& icon,
               const std::function<void(std::size_t)>& onAnswer);

    /// Focuses the default button.
    void focusDefaultButton();

    /// Fixes the width; gives the size at which everything is seen.
    QSize fitWidth();

  private:
    QWidget* defaultButton_ = nullptr;
};

/// A text of any program's making, no longer than an alert can show.
[[nodiscard]] QString alertText(const std::string& text);

} // namespace calmora
