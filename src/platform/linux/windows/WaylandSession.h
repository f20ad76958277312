// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/xdg/BaseDirectories.h"

#include <cstdlib>
#include <string>

namespace calmora {

/// Where the compositor listens that the environment names; empty where it names none.
/// Source: wl_display_connect(3).
[[nodiscard]] std::string compositorSocket(const EnvironmentReader& environment = std::getenv);

/// Whether this session may have windows that an X server does not know: the session type is
/// Wayland, or a compositor accepts connections. Source: pam_systemd(8), XDG_SESSION_TYPE.
[[nodiscard]] bool isWaylandSession(const EnvironmentReader& environment);

} // namespace calmora
