#include "platform/wayland/CompositorWindows.h"

#include "platform/wayland/SwayWindowSystem.h"

#include <cstdlib>

namespace calmora {

std::unique_ptr<WindowSystem> makeCompositorWindows(EventPoll& events) {
    // Programs in another session may have inherited the variable.
    const char* socket = std::getenv("WAYLAND_DISPLAY") ? std::getenv("SWAYSOCK") : nullptr;
    auto sway = socket ? std::make_unique<SwayWindowSystem>(events, socket) : nullptr;
    return sway && sway->isAlive() ? std::move(sway) : nullptr;
}

} // namespace calmora
