// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geometry.h"
#include "platform/Image.h"
#include "support/Subscription.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// A click on the status item.
enum class StatusEvent { leftMouseUp, rightMouseUp };

/// One entry of the status item's menu. An empty title makes a separator.
struct StatusMenuItem {
    std::string title;
    /// Letter that chooses the entry together with Command; empty means none.
    std::string keyEquivalent;
    bool isEnabled = true;
    std::function<void()> action;
};

/// The program's icon in the desktop's status bar. It exists for the whole run, also while no
/// status bar shows it.
class StatusItem {
  public:
    virtual ~StatusItem() = default;

    /// The monochrome glyph, drawn in the bar's own text colour at `points` by `points`; absent
    /// means no picture.
    virtual void setTemplateImage(const std::optional<Image>& image, int points) = 0;

    /// Called for every click on the icon.
    virtual void setAction(std::function<void(StatusEvent)> action) = 0;

    /// The menu, rebuilt by `build` each time that it opens. Some status bars open it by
    /// themselves, others on popUpMenu().
    virtual void setMenu(std::function<std::vector<StatusMenuItem>()> build) = 0;

    /// Opens the menu at the icon and returns when it has closed; does nothing if the status bar
    /// draws the menu.
    virtual void popUpMenu() = 0;

    /// Tells whether the popover is open at the icon, which then has no tool tip: it would lie over
    /// the popover.
    virtual void setPopoverShown(bool isShown) = 0;

    /// The icon's rectangle; absent if unknown.
    [[nodiscard]] virtual std::optional<Rect> frame() const = 0;
};

} // namespace calmora
