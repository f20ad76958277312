// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// Alert severity.
enum class AlertStyle { warning, informational, critical };

/// One button of an alert.
struct AlertButton {
    std::string title;
    /// The button is destructive and never the default.
    bool isDestructive = false;
};

/// A modal question to the user.
struct Alert {
    std::string messageText;
    std::string informativeText;
    AlertStyle style = AlertStyle::warning;
    /// Absent means the program's own icon.
    std::optional<Image> icon;
    /// In order; the last one is also the answer of Escape and of closing the window.
    std::vector<AlertButton> buttons;
};

/// Shows alerts.
class Alerts {
  public:
    virtual ~Alerts() = default;

    /// Shows the alert and blocks until it is answered. Returns the index of the chosen button.
    /// Workspace events, repeating timers and hot keys wait meanwhile.
    virtual std::size_t runModal(const Alert& alert) = 0;
};

} // namespace calmora
