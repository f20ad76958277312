#pragma once

#include "platform/qt/window/TransientWindows.h"

namespace calmora {

/// Transient windows as ordinary tool windows of the window manager, with nothing but Qt: where
/// the window system is not X11.
class ManagedTransientWindows final : public TransientWindows {
  public:
    [[nodiscard]] Qt::WindowFlags transientFlags() const override;

    [[nodiscard]] bool isComposited() override;

    void setInputArea(QWindow& window, const QRect& inner) override;

    [[nodiscard]] std::unique_ptr<FocusGrab>
    grabFocus(QWindow& window, std::function<bool()> isAlertOpen,
              std::function<void(Leaving)> onLeft) override;

    [[nodiscard]] std::optional<ModifierFlags> modifiers() override;

    [[nodiscard]] std::optional<std::uint32_t> eventTime() override;
};

} // namespace calmora
