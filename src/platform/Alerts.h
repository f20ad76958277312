#pragma once

#include "platform/Image.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// How grave an alert looks.
enum class AlertStyle { warning, informational, critical };

/// One button of an alert.
struct AlertButton {
    std::string title;
    /// The button does harm; it never is the default button.
    bool isDestructive = false;
};

/// A question that the user must answer before anything else happens.
struct Alert {
    std::string messageText;
    std::string informativeText;
    AlertStyle style = AlertStyle::warning;
    /// Absent means the program's own icon.
    std::optional<Image> icon;
    /// In order; the last one is the answer of Escape and of the closed window.
    std::vector<AlertButton> buttons;
};

/// Shows alerts.
class Alerts {
  public:
    virtual ~Alerts() = default;

    /// Shows the alert and blocks until it is answered: the index of the chosen button.
    /// Workspace notices, repeating timers and hot keys wait meanwhile.
    virtual std::size_t runModal(const Alert& alert) = 0;
};

} // namespace calmora
