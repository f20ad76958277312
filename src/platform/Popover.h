// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geometry.h"
#include "support/Subscription.h"

#include <functional>
#include <optional>

namespace calmora {

/// The transient window at the status icon: it closes when the user clicks elsewhere.
class Popover {
  public:
    virtual ~Popover() = default;

    /// The size of the content.
    virtual void setContentSize(Size size) = 0;

    /// Whether it is on screen.
    [[nodiscard]] virtual bool isShown() const = 0;

    /// Shows it at the icon's rectangle or, without one, in the corner of the work area next to the
    /// panel, and gives it the keyboard focus.
    virtual void show(std::optional<Rect> anchor) = 0;

    /// While `holds` returns true, another window may get the focus without closing it.
    virtual void stayOpenWhile(std::function<bool()> holds) = 0;

    /// Closes it; does nothing while it is closed.
    virtual void performClose() = 0;

    /// Calls `handler` before it is shown.
    [[nodiscard]] virtual Subscription onWillShow(std::function<void()> handler) = 0;

    /// Calls `handler` after it has closed.
    [[nodiscard]] virtual Subscription onDidClose(std::function<void()> handler) = 0;
};

} // namespace calmora
