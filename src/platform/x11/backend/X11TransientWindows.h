// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/window/TransientWindows.h"
#include "platform/x11/backend/X11Input.h"

namespace calmora {

/// Transient windows on X11: override-redirect, because openbox and xfwm4 take Alt+click on a
/// managed window for moving it, and no click made with Option held would arrive.
class X11TransientWindows final : public TransientWindows {
  public:
    [[nodiscard]] Qt::WindowFlags transientFlags() const override;

    [[nodiscard]] bool isComposited() override;

    void setInputArea(QWindow& window, const QRect& inner) override;

    [[nodiscard]] std::unique_ptr<FocusGrab>
    grabFocus(QWindow& window, std::function<bool()> isAlertOpen,
              std::function<void(Leaving)> onLeft) override;

    [[nodiscard]] std::optional<ModifierFlags> modifiers() override;

    [[nodiscard]] std::optional<std::uint32_t> eventTime() override;

  private:
    X11Input input_;
};

} // namespace calmora
