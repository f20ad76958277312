#pragma once

#include "platform/Geometry.h"
#include "support/Subscription.h"

#include <functional>
#include <optional>

namespace calmora {

/// The window under the status icon. Transient: it closes when the user turns elsewhere.
class Popover {
  public:
    virtual ~Popover() = default;

    /// The size of the content.
    virtual void setContentSize(Size size) = 0;

    /// Whether it is on screen.
    [[nodiscard]] virtual bool isShown() const = 0;

    /// Shows it at the icon's rectangle, or, where that is absent, in the corner of the work area
    /// next to the panel, and gives it the keyboard.
    virtual void show(std::optional<Rect> anchor) = 0;

    /// Closes it as a user would; does nothing while it is closed.
    virtual void performClose() = 0;

    /// Tells that it is about to be shown.
    [[nodiscard]] virtual Subscription onWillShow(std::function<void()> handler) = 0;

    /// Tells that it has closed.
    [[nodiscard]] virtual Subscription onDidClose(std::function<void()> handler) = 0;
};

} // namespace calmora
