// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

namespace calmora {

/// What is known of the session before Qt starts.
struct CompositorFacts {
    /// The user's QT_QPA_PLATFORM; empty when there is none.
    std::string wantedPlatform = {};
    /// A Wayland compositor answers.
    bool hasCompositor = false;
    /// It places layer surfaces: popovers, menus, alerts where we want them
    /// (zwlr_layer_shell_v1).
    bool hasLayerShell = false;
    /// It draws title bars (zxdg_decoration_manager_v1).
    bool drawsTitleBars = false;
    /// There is an X server to connect to.
    bool hasXServer = false;
    /// How much larger the desktop on X11 draws its windows, where Qt does not see it.
    int windowScale = 1;
};

/// Asks the session, in a few milliseconds: the compositor with one round trip of limited time, the
/// X server only where it depends on it.
[[nodiscard]] CompositorFacts readCompositorFacts(bool (*answersOnX11)());

/// The environment variables that make Qt use the window system of this session: layer surfaces
/// where there are some, else X11, where a program may place its windows, else Wayland.
/// Source: Qt, QT_QPA_PLATFORM; Qt Wayland, QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT (a window
/// without window manager has a surface without a role), QT_WAYLAND_DISABLE_FIXED_POSITIONS (a
/// window keeps the position that it was given), QT_WAYLAND_DISABLE_WINDOWDECORATION,
/// QT_SCALE_FACTOR.
[[nodiscard]] std::map<std::string, std::string> qtEnvironmentFor(const CompositorFacts& facts);

} // namespace calmora
