// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/backend/LayerShellProtocol.h"

#include <functional>
#include <string>
#include <xdg-activation-v1-client.h>

class QScreen;
class QWindow;

namespace calmora {

/// The layer shell on Qt's own connection to the compositor, with what is needed to use it on Qt's
/// windows. Needs the QApplication and must not outlive it.
class LayerShell {
  public:
    LayerShell();
    LayerShell(const LayerShell&) = delete;
    LayerShell& operator=(const LayerShell&) = delete;
    ~LayerShell();

    /// Whether Qt runs on Wayland and the compositor has a layer shell. Without it nothing below
    /// may be called.
    [[nodiscard]] bool isPresent() const { return shell_ != nullptr && compositor_ != nullptr; }

    /// The surface of a window; null where it has none.
    [[nodiscard]] static wl_surface* surfaceOf(QWindow& window);

    /// Makes a surface a layer surface; null for the screen leaves it to the compositor.
    [[nodiscard]] zwlr_layer_surface_v1* addRole(wl_surface* surface, QScreen* screen,
                                                 zwlr_layer_shell_v1_layer layer) const;

    /// Whether a surface can have the keyboard without keeping it from all others. sway knows how,
    /// but takes the keyboard away again when any other layer surface changes (1.10).
    [[nodiscard]] bool knowsOnDemand() const;

    [[nodiscard]] wl_region* makeRegion() const;

    /// A token by which another program may bring a window to the front, on behalf of `window`,
    /// which may be null; empty where the compositor gives none.
    /// Source: Wayland, xdg-activation.
    [[nodiscard]] std::string activationToken(QWindow* window) const;

    /// Dispatches what the compositor tells new layer surfaces until `condition` holds: whether it
    /// came to hold.
    [[nodiscard]] bool dispatchUntil(const std::function<bool()>& condition) const;

  private:
    wl_display* display_ = nullptr;
    wl_event_queue* queue_ = nullptr;
    wl_registry* registry_ = nullptr;
    wl_compositor* compositor_ = nullptr;
    zwlr_layer_shell_v1* shell_ = nullptr;
    /// Null where the compositor has none.
    xdg_activation_v1* activation_ = nullptr;
};

} // namespace calmora
