// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/WindowBackend.h"
#include "platform/wayland/backend/LayerTransientWindows.h"

#include <memory>
#include <utility>

namespace calmora {

/// A backend whose transient windows are layer surfaces; another one does everything else.
class LayerShellBackend final : public WindowBackend {
  public:
    LayerShellBackend(std::unique_ptr<WindowBackend> rest,
                      std::unique_ptr<LayerTransientWindows> transientWindows)
        : rest_(std::move(rest)), transientWindows_(std::move(transientWindows)) {}

    [[nodiscard]] WindowSystem& windows() override { return rest_->windows(); }

    [[nodiscard]] HotKeys& hotKeys() override { return rest_->hotKeys(); }

    [[nodiscard]] KeyboardLayout& keyboardLayout() override { return rest_->keyboardLayout(); }

    [[nodiscard]] TransientWindows& transientWindows() override { return *transientWindows_; }

    void discardKeyPresses() override { rest_->discardKeyPresses(); }

    [[nodiscard]] std::string windowManagerName() override { return rest_->windowManagerName(); }

    [[nodiscard]] std::string themeName() const override { return rest_->themeName(); }

    [[nodiscard]] Subscription onThemeChanged(std::function<void()> handler) override {
        return rest_->onThemeChanged(std::move(handler));
    }

    [[nodiscard]] std::string listLimitation() const override { return rest_->listLimitation(); }

  private:
    std::unique_ptr<WindowBackend> rest_;
    std::unique_ptr<LayerTransientWindows> transientWindows_;
};

/// `backend` with layer surfaces where the compositor has them; itself elsewhere. Needs the
/// QApplication.
[[nodiscard]] std::unique_ptr<WindowBackend>
withLayerSurfaces(std::unique_ptr<WindowBackend> backend);

} // namespace calmora
