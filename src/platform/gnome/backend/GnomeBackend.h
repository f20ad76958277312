// SPDX-License-Identifier: MIT
#pragma once

#include "platform/gnome/backend/ShellHotKeys.h"
#include "platform/gnome/backend/ShellTransientWindows.h"
#include "platform/qt/WindowBackend.h"

#include <functional>
#include <memory>
#include <string>

namespace calmora {

class ShellLink;

/// The backend of a GNOME session: another one's windows, with hot keys and, on Wayland, transient
/// windows by our extension in the shell.
class GnomeBackend final : public WindowBackend {
  public:
    /// `rest` has the windows of the shell already, see makeShellWindows(). `link` must outlive
    /// the backend. `mayAct` says whether a press of a hot key may act now.
    GnomeBackend(ShellLink& link, std::unique_ptr<WindowBackend> rest,
                 std::function<bool()> mayAct);

    [[nodiscard]] WindowSystem& windows() override { return rest_->windows(); }

    [[nodiscard]] HotKeys& hotKeys() override { return hotKeys_; }

    [[nodiscard]] KeyboardLayout& keyboardLayout() override { return rest_->keyboardLayout(); }

    [[nodiscard]] TransientWindows& transientWindows() override {
        return isOnWayland_ ? transientWindows_ : rest_->transientWindows();
    }

    void discardKeyPresses() override { rest_->discardKeyPresses(); }

    [[nodiscard]] std::string windowManagerName() override { return rest_->windowManagerName(); }

    [[nodiscard]] std::string listLimitation() const override;

  private:
    ShellLink& link_;
    bool isOnWayland_ = false;
    std::unique_ptr<WindowBackend> rest_;
    ShellHotKeys hotKeys_;
    ShellTransientWindows transientWindows_;
};

} // namespace calmora
