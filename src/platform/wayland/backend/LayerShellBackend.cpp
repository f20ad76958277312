// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/LayerShellBackend.h"

#include <QString>

namespace calmora {

std::unique_ptr<WindowBackend> withLayerSurfaces(std::unique_ptr<WindowBackend> backend) {
    const bool isPlasma = qEnvironmentVariable("XDG_CURRENT_DESKTOP").contains("KDE");
    auto layers = std::make_unique<LayerTransientWindows>(isPlasma);
    if (!layers->isUsable()) {
        return backend;
    }
    return std::make_unique<LayerShellBackend>(std::move(backend), std::move(layers));
}

} // namespace calmora
