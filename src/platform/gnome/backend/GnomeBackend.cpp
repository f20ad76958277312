// SPDX-License-Identifier: MIT
#include "platform/gnome/backend/GnomeBackend.h"

#include "platform/gnome/backend/ShellLink.h"

#include <utility>

namespace calmora {

GnomeBackend::GnomeBackend(ShellLink& link, std::unique_ptr<WindowBackend> rest,
                           std::function<bool()> mayAct)
    : WrappedBackend(std::move(rest)), link_(link),
      isOnWayland_(!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")),
      // The portal would ask the user for keys whenever the screen is locked.
      hotKeys_(link, WrappedBackend::hotKeys(), !isOnWayland_, std::move(mayAct)),
      transientWindows_(link) {}

std::string GnomeBackend::listLimitation() const {
    return isOnWayland_ && link_.state() == ShellLink::State::absent
               ? "Without the GNOME extension, Calmora sees no Wayland windows. Some apps are "
                 "missing, and some can only be force quit."
               : "";
}

} // namespace calmora
