// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/LayerRole.h"

#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace calmora {

LayerRole::LayerRole(const LayerShell& shell, QWindow& window, QScreen* screen,
                     const Options& options, std::function<void()> onClosed)
    : shell_(shell), window_(window),
      screenOrigin_(screen ? screen->geometry().topLeft() : QPoint()), options_(options),
      onClosed_(std::move(onClosed)), surface_(LayerShell::surfaceOf(window)) {
    if (!surface_) {
        return;
    }
    role_ = shell_.addRole(surface_, screen,
                           options.isOverlay ? ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY
                                             : ZWLR_LAYER_SHELL_V1_LAYER_TOP);
    static constexpr zwlr_layer_surface_v1_listener listener{
        .configure =
            [](void* self, zwlr_layer_surface_v1* role, std::uint32_t serial, std::uint32_t,
               std::uint32_t) {
                zwlr_layer_surface_v1_ack_configure(role, serial);
                static_cast<LayerRole*>(self)->isConfigured_ = true;
            },
        .closed =
            [](void* data, zwlr_layer_surface_v1*) {
                auto* self = static_cast<LayerRole*>(data);
                QTimer::singleShot(0, &self->context_, [self] {
                    const auto action = self->onClosed_;
                    action();
                });
            }};
    zwlr_layer_surface_v1_add_listener(role_, &listener, this);
    if (!options.isCentred) {
        zwlr_layer_surface_v1_set_anchor(role_, ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP |
                                                    ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
        // From the edges of the output, over bars.
        zwlr_layer_surface_v1_set_exclusive_zone(role_, -1);
    }
    sendKeyboard();
    if (!options.takesPointer) {
        setInputArea({});
    }
    place();
    if (shell_.dispatchUntil([this] { return isConfigured_; })) {
        // From now on Qt dispatches what the compositor tells.
        wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(role_), nullptr);
    }
    QObject::connect(&window_, &QWindow::xChanged, &context_, [this] { place(); });
    QObject::connect(&window_, &QWindow::yChanged, &context_, [this] { place(); });
    QObject::connect(&window_, &QWindow::widthChanged, &context_, [this] { place(); });
    QObject::connect(&window_, &QWindow::heightChanged, &context_, [this] { place(); });
}

LayerRole::~LayerRole() {
    if (role_) {
        zwlr_layer_surface_v1_destroy(role_);
    }
}

void LayerRole::setKeyboard(Keyboard keyboard) {
    if (std::exchange(options_.keyboard, keyboard) != keyboard && role_) {
        sendKeyboard();
        wl_surface_commit(surface_);
    }
}

void LayerRole::setInputArea(const QRect& area) {
    if (!role_) {
        return;
    }
    wl_region* region = shell_.makeRegion();
    wl_region_add(region, area.x(), area.y(), area.width(), area.height());
    wl_surface_set_input_region(surface_, region);
    wl_region_destroy(region);
    wl_surface_commit(surface_);
}

void LayerRole::place() {
    const QRect geometry = window_.geometry().translated(-screenOrigin_);
    if (std::exchange(placed_, geometry) == geometry) {
        return;
    }
    zwlr_layer_surface_v1_set_size(role_, static_cast<std::uint32_t>(geometry.width()),
                                   static_cast<std::uint32_t>(geometry.height()));
    zwlr_layer_surface_v1_set_margin(role_, options_.isCentred ? 0 : geometry.y(), 0, 0,
                                     options_.isCentred ? 0 : geometry.x());
    wl_surface_commit(surface_);
}

void LayerRole::sendKeyboard() {
    std::uint32_t interactivity = ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE;
    if (options_.keyboard != Keyboard::none) {
        interactivity = options_.keyboard == Keyboard::onDemand && shell_.knowsOnDemand()
                            ? ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_ON_DEMAND
                            : ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE;
    }
    zwlr_layer_surface_v1_set_keyboard_interactivity(role_, interactivity);
}

} // namespace calmora
