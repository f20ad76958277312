// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/xdg/BaseDirectories.h"

namespace calmora {

/// Whether this session may have windows that an X server does not know: the session type is
/// Wayland, or a compositor accepts connections. Source: WAYLAND_DISPLAY as wl_display_connect(3)
/// reads it; pam_systemd(8), XDG_SESSION_TYPE.
[[nodiscard]] bool isWaylandSession(const EnvironmentReader& environment);

} // namespace calmora
