// SPDX-License-Identifier: MIT
#pragma once

#include "platform/gnome/backend/ShellHotKeys.h"
#include "platform/gnome/backend/ShellTransientWindows.h"
#include "platform/qt/WrappedBackend.h"

#include <functional>
#include <memory>
#include <string>

namespace calmora {

class ShellLink;

/// The backend of a GNOME session: another one's windows, with hot keys and, on Wayland, transient
/// windows by our extension in the shell.
class GnomeBackend final : public WrappedBackend {
  public:
    /// `rest` has the windows of the shell already, see makeShellWindows(). `link` must outlive
    /// the backend. `mayAct` says whether a press of a hot key may act now.
    GnomeBackend(ShellLink& link, std::unique_ptr<WindowBackend> rest,
                 std::function<bool()> mayAct);

    [[nodiscard]] HotKeys& hotKeys() override { return hotKeys_; }

    [[nodiscard]] TransientWindows& transientWindows() override {
        return isOnWayland_ ? transientWindows_ : WrappedBackend::transientWindows();
    }

    [[nodiscard]] std::string listLimitation() const override;

  private:
    ShellLink& link_;
    bool isOnWayland_ = false;
    ShellHotKeys hotKeys_;
    ShellTransientWindows transientWindows_;
};

} // namespace calmora
