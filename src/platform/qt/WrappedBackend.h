// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/WindowBackend.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace calmora {

/// A backend that passes everything on to another one; derived classes replace parts.
class WrappedBackend : public WindowBackend {
  public:
    explicit WrappedBackend(std::unique_ptr<WindowBackend> rest) : rest_(std::move(rest)) {}

    [[nodiscard]] WindowSystem& windows() override { return rest_->windows(); }

    [[nodiscard]] HotKeys& hotKeys() override { return rest_->hotKeys(); }

    [[nodiscard]] KeyboardLayout& keyboardLayout() override { return rest_->keyboardLayout(); }

    [[nodiscard]] TransientWindows& transientWindows() override {
        return rest_->transientWindows();
    }

    void discardKeyPresses() override { rest_->discardKeyPresses(); }

    [[nodiscard]] std::string activationToken() override { return rest_->activationToken(); }

    [[nodiscard]] std::string windowManagerName() override { return rest_->windowManagerName(); }

    [[nodiscard]] std::string themeName() const override { return rest_->themeName(); }

    [[nodiscard]] std::optional<double> fontPoints() const override { return rest_->fontPoints(); }

    [[nodiscard]] Subscription onLookChanged(std::function<void()> handler) override {
        return rest_->onLookChanged(std::move(handler));
    }

    [[nodiscard]] std::string listLimitation() const override { return rest_->listLimitation(); }

    [[nodiscard]] std::string autoQuitLimitation() const override {
        return rest_->autoQuitLimitation();
    }

  private:
    std::unique_ptr<WindowBackend> rest_;
};

} // namespace calmora
