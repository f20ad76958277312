// SPDX-License-Identifier: MIT
#include "platform/wayland/CompositorWindows.h"

#include "platform/wayland/SwayWindowSystem.h"
#include "platform/wayland/ToplevelWindowSystem.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>

namespace calmora {
namespace {

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

} // namespace

std::unique_ptr<WindowSystem> makeCompositorWindows(EventPoll& events, ProgramNames programs) {
    const std::string display = variable("WAYLAND_DISPLAY");
    if (display.empty()) {
        return nullptr; // Programs in another session may have inherited SWAYSOCK.
    }
    if (auto sway = std::make_unique<SwayWindowSystem>(events, variable("SWAYSOCK"));
        sway->isAlive()) {
        return sway;
    }
    // An absolute path stays as it is.
    const auto socket = std::filesystem::path(variable("XDG_RUNTIME_DIR")) / display;
    auto toplevels = std::make_unique<ToplevelWindowSystem>(events, socket, std::move(programs));
    return toplevels->isAlive() ? std::move(toplevels) : nullptr;
}

} // namespace calmora
