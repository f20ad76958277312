// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/backend/LayerShell.h"

#include <QObject>
#include <QRect>

#include <functional>

class QWindow;

namespace calmora {

/// Makes the surface of one of Qt's windows a layer surface, where the window's geometry says, from
/// right before the window is shown until it is hidden: the role must end before the surface.
class LayerRole {
  public:
    enum class Keyboard {
        none,
        /// At once, until the user turns elsewhere.
        onDemand,
        /// Nobody else gets it.
        exclusive,
    };

    struct Options {
        /// Above panels and above layer surfaces that are not.
        bool isOverlay = false;
        Keyboard keyboard = Keyboard::none;
        bool takesPointer = true;
        /// In the middle of the screen, whatever the geometry says.
        bool isCentred = false;
    };

    /// `window` has a surface without a role, as with Qt::BypassWindowManagerHint. `screen` may be
    /// null. `onClosed` is called when the compositor takes the surface away.
    LayerRole(const LayerShell& shell, QWindow& window, QScreen* screen, const Options& options,
              std::function<void()> onClosed);

    LayerRole(const LayerRole&) = delete;
    LayerRole& operator=(const LayerRole&) = delete;
    ~LayerRole();

    /// Whether the compositor lets the window be shown.
    [[nodiscard]] bool isConfigured() const { return isConfigured_; }

    [[nodiscard]] const Options& options() const { return options_; }

    void setKeyboard(Keyboard keyboard);

    /// Lets the pointer through outside of `area`, given within the window.
    void setInputArea(const QRect& area);

  private:
    void place();
    void sendKeyboard();

    const LayerShell& shell_;
    QWindow& window_;
    QPoint screenOrigin_;
    /// Where the compositor has it, relative to the screen.
    QRect placed_;
    Options options_;
    std::function<void()> onClosed_;
    wl_surface* surface_;
    zwlr_layer_surface_v1* role_ = nullptr;
    bool isConfigured_ = false;
    QObject context_;
};

} // namespace calmora
