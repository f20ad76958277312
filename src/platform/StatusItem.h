#pragma once

#include "platform/Geometry.h"
#include "platform/Image.h"
#include "support/Subscription.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// What fired the action of the status item's button.
enum class StatusEvent { leftMouseUp, rightMouseUp };

/// One entry of the status item's menu. An empty title makes a separator.
struct StatusMenuItem {
    std::string title;
    /// Letter that chooses the entry together with Command; empty means none.
    std::string keyEquivalent;
    bool isEnabled = true;
    std::function<void()> action;
};

/// The program's icon in the desktop's status bar. It exists for the whole run, also while there
/// is no status bar to show it.
class StatusItem {
  public:
    virtual ~StatusItem() = default;

    /// The monochrome glyph, drawn in the bar's own text colour at `points` by `points`; absent
    /// means no picture.
    virtual void setTemplateImage(const std::optional<Image>& image, int points) = 0;

    /// Called for every click on the icon.
    virtual void setAction(std::function<void(StatusEvent)> action) = 0;

    /// The menu, built afresh by `build` each time that it opens. Some status bars open it by
    /// themselves, others on popUpMenu().
    virtual void setMenu(std::function<std::vector<StatusMenuItem>()> build) = 0;

    /// Opens the menu at the icon and returns when it has closed; does nothing where the status
    /// bar draws the menu by itself.
    virtual void popUpMenu() = 0;

    /// Where the icon is; absent when no status bar tells.
    [[nodiscard]] virtual std::optional<Rect> frame() const = 0;
};

} // namespace calmora
