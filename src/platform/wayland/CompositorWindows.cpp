// SPDX-License-Identifier: MIT
#include "platform/wayland/CompositorWindows.h"

#include "platform/linux/windows/WaylandSession.h"
#include "platform/wayland/SwayWindowSystem.h"
#include "platform/wayland/ToplevelWindowSystem.h"

#include <cstdlib>
#include <string>
#include <utility>

namespace calmora {

std::unique_ptr<WindowSystem> makeCompositorWindows(EventPoll& events, ProgramNames programs) {
    const std::string socket = compositorSocket();
    if (socket.empty()) {
        return nullptr; // Programs in another session may have inherited SWAYSOCK.
    }
    if (const char* swaySocket = std::getenv("SWAYSOCK")) {
        auto sway = std::make_unique<SwayWindowSystem>(events, swaySocket);
        if (sway->isAlive()) {
            return sway;
        }
    }
    auto toplevels = std::make_unique<ToplevelWindowSystem>(events, socket, std::move(programs));
    return toplevels->isAlive() ? std::move(toplevels) : nullptr;
}

} // namespace calmora
