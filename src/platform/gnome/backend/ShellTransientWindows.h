// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/window/ManagedTransientWindows.h"

#include <QPointer>
#include <QWindow>

namespace calmora {

class ShellLink;

/// Transient windows of a GNOME session on Wayland: ordinary windows of its X server, because these
/// stay out of the dash. Our extension puts the popover below the icon and tells of presses that
/// move no focus.
class ShellTransientWindows final : public TransientWindows {
  public:
    /// `link` must outlive it.
    explicit ShellTransientWindows(ShellLink& link) : link_(link) {}

    [[nodiscard]] Qt::WindowFlags transientFlags() const override {
        return managed_.transientFlags();
    }

    void prepare(QWidget& window, const QRect& inner) override;

    [[nodiscard]] bool isComposited() override { return true; }

    void setInputArea(QWindow& window, const QRect& inner) override;

    [[nodiscard]] std::unique_ptr<FocusGrab>
    grabFocus(QWindow& window, std::function<bool()> isAlertOpen,
              std::function<void(Leaving)> onLeft) override;

    [[nodiscard]] std::optional<ModifierFlags> modifiers() override { return {}; }

    [[nodiscard]] std::optional<std::uint32_t> eventTime() override { return {}; }

  private:
    ShellLink& link_;
    ManagedTransientWindows managed_;
    QPointer<QWindow> popover_;
};

} // namespace calmora
