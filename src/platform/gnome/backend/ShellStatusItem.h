// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"
#include "platform/desktop/status/QtStatusItem.h"
#include "platform/gnome/backend/ShellMessages.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace calmora {

class ShellLink;

/// The status item of a GNOME session: shown by our extension in the shell while that is attached,
/// else by what other status items are shown by. Never by both.
class ShellStatusItem final : public StatusItem {
  public:
    /// `link` must outlive it. `onMenu` is called when the shell opens and closes the menu.
    ShellStatusItem(ShellLink& link, std::unique_ptr<QtStatusItem> other,
                    std::function<void(bool)> onMenu);

    /// The shell shows the variant "NAME-symbolic.svg" beside the image's file "NAME.svg".
    void setTemplateImage(const std::optional<Image>& image, int points) override;
    void setAction(std::function<void(StatusEvent)> action) override;
    void setMenu(std::function<std::vector<StatusMenuItem>()> build) override;
    void popUpMenu() override;

    void setPopoverShown(bool isShown) override { other_->setPopoverShown(isShown); }

    [[nodiscard]] std::optional<Rect> frame() const override;

  private:
    void stateChanged();
    void updateMenu();
    void menuActivated(uint id);

    ShellLink& link_;
    std::unique_ptr<QtStatusItem> other_;
    std::function<void(bool)> onMenu_;
    std::function<void(StatusEvent)> action_;
    std::function<std::vector<StatusMenuItem>()> build_;
    std::vector<Subscription> subscriptions_;
};

} // namespace calmora
