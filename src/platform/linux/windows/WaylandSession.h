#pragma once

#include "platform/linux/xdg/BaseDirectories.h"

namespace calmora {

/// Whether programs of this session may have windows that an X server knows nothing of: the
/// session says that it is a Wayland one, or a compositor answers where programs would look for
/// it.  Source: WAYLAND_DISPLAY as wl_display_connect(3) reads it; pam_systemd(8),
/// XDG_SESSION_TYPE.
[[nodiscard]] bool isWaylandSession(const EnvironmentReader& environment);

} // namespace calmora
