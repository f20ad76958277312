// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/WrappedBackend.h"
#include "platform/wayland/backend/LayerTransientWindows.h"

#include <memory>
#include <string>
#include <utility>

namespace calmora {

/// A backend whose transient windows are layer surfaces; another one does everything else.
class LayerShellBackend final : public WrappedBackend {
  public:
    LayerShellBackend(std::unique_ptr<WindowBackend> rest,
                      std::unique_ptr<LayerTransientWindows> transientWindows)
        : WrappedBackend(std::move(rest)), transientWindows_(std::move(transientWindows)) {}

    [[nodiscard]] TransientWindows& transientWindows() override { return *transientWindows_; }

    [[nodiscard]] std::string activationToken() override {
        return transientWindows_->activationToken();
    }

  private:
    std::unique_ptr<LayerTransientWindows> transientWindows_;
};

/// `backend` with layer surfaces where the compositor has them; itself elsewhere. Needs the
/// QApplication.
[[nodiscard]] std::unique_ptr<WindowBackend>
withLayerSurfaces(std::unique_ptr<WindowBackend> backend);

} // namespace calmora
