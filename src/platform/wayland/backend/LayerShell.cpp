// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/LayerShell.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <qpa/qplatformnativeinterface.h>
#include <string_view>

namespace calmora {

namespace {

/// Round trips within which a compositor answers.
constexpr int usualTrips = 5;

QPlatformNativeInterface* native() {
    return QGuiApplication::platformNativeInterface();
}

} // namespace

LayerShell::LayerShell() {
    if (!QGuiApplication::platformName().startsWith("wayland")) {
        return;
    }
    display_ = static_cast<wl_display*>(native()->nativeResourceForIntegration("wl_display"));
    if (!display_) {
        return;
    }
    // A queue of our own, so that waiting for the compositor runs nothing of Qt's.
    queue_ = wl_display_create_queue(display_);
    auto* wrapper = static_cast<wl_display*>(wl_proxy_create_wrapper(display_));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper), queue_);
    registry_ = wl_display_get_registry(wrapper);
    wl_proxy_wrapper_destroy(wrapper);
    static constexpr wl_registry_listener listener{
        .global =
            [](void* data, wl_registry* registry, std::uint32_t name, const char* interface,
               std::uint32_t version) {
                auto& self = *static_cast<LayerShell*>(data);
                const auto bind = [&](const wl_interface& wanted, std::uint32_t highest) {
                    return wl_registry_bind(registry, name, &wanted, std::min(version, highest));
                };
                if (std::string_view(interface) == wl_compositor_interface.name) {
                    self.compositor_ =
                        static_cast<wl_compositor*>(bind(wl_compositor_interface, 1));
                } else if (std::string_view(interface) == zwlr_layer_shell_v1_interface.name) {
                    self.shell_ =
                        static_cast<zwlr_layer_shell_v1*>(bind(zwlr_layer_shell_v1_interface, 4));
                } else if (std::string_view(interface) == xdg_activation_v1_interface.name) {
                    self.activation_ =
                        static_cast<xdg_activation_v1*>(bind(xdg_activation_v1_interface, 1));
                }
            },
        .global_remove = [](void*, wl_registry*, std::uint32_t) {}};
    wl_registry_add_listener(registry_, &listener, this);
    wl_display_roundtrip_queue(display_, queue_);
}

LayerShell::~LayerShell() {
    if (activation_) {
        xdg_activation_v1_destroy(activation_);
    }
    if (shell_) {
        zwlr_layer_shell_v1_destroy(shell_);
    }
    if (compositor_) {
        wl_compositor_destroy(compositor_);
    }
    if (registry_) {
        wl_registry_destroy(registry_);
        wl_event_queue_destroy(queue_);
    }
}

wl_surface* LayerShell::surfaceOf(QWindow& window) {
    return static_cast<wl_surface*>(native()->nativeResourceForWindow("surface", &window));
}

zwlr_layer_surface_v1* LayerShell::addRole(wl_surface* surface, QScreen* screen,
                                           zwlr_layer_shell_v1_layer layer) const {
    auto* output =
        screen ? static_cast<wl_output*>(native()->nativeResourceForScreen("output", screen))
               : nullptr;
    return zwlr_layer_shell_v1_get_layer_surface(shell_, surface, output, layer, "calmora");
}

bool LayerShell::knowsOnDemand() const {
    return zwlr_layer_shell_v1_get_version(shell_) >=
               ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_ON_DEMAND_SINCE_VERSION &&
           !qEnvironmentVariableIsSet("SWAYSOCK");
}

wl_region* LayerShell::makeRegion() const {
    return wl_compositor_create_region(compositor_);
}

std::string LayerShell::activationToken(QWindow* window) const {
    if (!activation_) {
        return {};
    }
    std::string token;
    auto* request = xdg_activation_v1_get_activation_token(activation_);
    static constexpr xdg_activation_token_v1_listener listener{
        .done = [](void* data, xdg_activation_token_v1*, const char* given) {
            *static_cast<std::string*>(data) = given;
        }};
    xdg_activation_token_v1_add_listener(request, &listener, &token);
    if (wl_surface* surface = window ? surfaceOf(*window) : nullptr) {
        xdg_activation_token_v1_set_surface(request, surface);
    }
    xdg_activation_token_v1_commit(request);
    static_cast<void>(dispatchUntil([&] { return !token.empty(); }));
    xdg_activation_token_v1_destroy(request);
    return token;
}

bool LayerShell::dispatchUntil(const std::function<bool()>& condition) const {
    for (int trip = 0; !condition() && trip < usualTrips; ++trip) {
        if (wl_display_roundtrip_queue(display_, queue_) < 0) {
            break;
        }
    }
    return condition();
}

} // namespace calmora
