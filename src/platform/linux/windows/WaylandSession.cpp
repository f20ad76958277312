// SPDX-License-Identifier: MIT
#include "platform/linux/windows/WaylandSession.h"

#include "platform/linux/protection/SocketPeers.h"

#include <cerrno>
#include <string>

namespace calmora {

namespace {

/// Whether a process listens on a socket; true in doubt.
bool isAnswered(const std::string& path) {
    return connectedTo(path) || (errno != ENOENT && errno != ENOTDIR && errno != ECONNREFUSED);
}

} // namespace

bool isWaylandSession(const EnvironmentReader& environment) {
    const auto variable = [&](const char* name) {
        const char* value = environment(name);
        return std::string(value != nullptr ? value : "");
    };
    if (variable("XDG_SESSION_TYPE") == "wayland") {
        return true;
    }
    const std::string display = variable("WAYLAND_DISPLAY");
    if (display.empty()) {
        return false;
    }
    return isAnswered(display.starts_with('/') ? display
                                               : variable("XDG_RUNTIME_DIR") + '/' + display);
}

} // namespace calmora
