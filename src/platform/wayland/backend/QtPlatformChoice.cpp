// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/QtPlatformChoice.h"

#include "platform/wayland/backend/CompositorConnection.h"

#include <cstdlib>
#include <string_view>

namespace calmora {

namespace {

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

} // namespace

CompositorFacts readCompositorFacts(bool (*answersOnX11)()) {
    CompositorFacts facts{.wantedPlatform = variable("QT_QPA_PLATFORM")};
    // A connection that was handed over can be used once only.
    if (!variable("WAYLAND_DISPLAY").empty() && variable("WAYLAND_SOCKET").empty()) {
        const CompositorConnection compositor;
        facts.hasCompositor = compositor.isAlive();
        facts.hasLayerShell =
            compositor.offers("zwlr_layer_shell_v1") && compositor.offers("wp_viewporter");
        facts.drawsTitleBars = compositor.offers("zxdg_decoration_manager_v1");
    }
    facts.hasXServer = !variable("DISPLAY").empty() &&
                       (!facts.hasCompositor || facts.hasLayerShell || answersOnX11());
    return facts;
}

std::map<std::string, std::string> qtEnvironmentFor(const CompositorFacts& facts) {
    std::map<std::string, std::string> environment;
    const bool isOnWayland = facts.wantedPlatform.empty()
                                 ? facts.hasLayerShell
                                 : std::string_view(facts.wantedPlatform).starts_with("wayland");
    if (facts.hasLayerShell && isOnWayland) {
        environment["QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT"] = "1";
        environment["QT_WAYLAND_DISABLE_FIXED_POSITIONS"] = "1";
        if (facts.drawsTitleBars) {
            environment["QT_WAYLAND_DISABLE_WINDOWDECORATION"] = "1";
        }
    }
    if (facts.wantedPlatform.empty()) {
        if (facts.hasLayerShell) {
            // Where Qt's part for Wayland is not installed, X11 will do.
            environment["QT_QPA_PLATFORM"] = facts.hasXServer ? "wayland;xcb" : "wayland";
        } else if (facts.hasXServer) {
            environment["QT_QPA_PLATFORM"] = "xcb";
        } else if (facts.hasCompositor) {
            environment["QT_QPA_PLATFORM"] = "wayland";
        }
    }
    if (!facts.hasCompositor && facts.windowScale > 1) {
        environment["QT_SCALE_FACTOR"] = std::to_string(facts.windowScale);
    }
    return environment;
}

} // namespace calmora
