// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/window/TransientWindows.h"

namespace calmora {

/// Transient windows as ordinary tool windows of the window manager, by Qt alone.
class ManagedTransientWindows final : public TransientWindows {
  public:
    [[nodiscard]] Qt::WindowFlags transientFlags() const override {
        return Qt::Tool | Qt::FramelessWindowHint;
    }

    [[nodiscard]] bool isComposited() override { return true; }

    void setInputArea(QWindow& /*window*/, const QRect& /*inner*/) override {}

    [[nodiscard]] std::unique_ptr<FocusGrab>
    grabFocus(QWindow& window, std::function<bool()> isAlertOpen,
              std::function<void(Leaving)> onLeft) override;

    [[nodiscard]] std::optional<ModifierFlags> modifiers() override { return {}; }

    [[nodiscard]] std::optional<std::uint32_t> eventTime() override { return {}; }
};

} // namespace calmora
