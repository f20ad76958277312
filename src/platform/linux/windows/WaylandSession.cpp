// SPDX-License-Identifier: MIT
#include "platform/linux/windows/WaylandSession.h"

#include "platform/linux/protection/SocketPeers.h"

#include <cerrno>
#include <filesystem>

namespace calmora {

namespace {

std::string variable(const EnvironmentReader& environment, const char* name) {
    const char* value = environment(name);
    return value != nullptr ? value : "";
}

/// Whether a process listens on a socket; true in doubt.
bool isAnswered(const std::string& path) {
    return connectedTo(path) || (errno != ENOENT && errno != ENOTDIR && errno != ECONNREFUSED);
}

} // namespace

std::string compositorSocket(const EnvironmentReader& environment) {
    const std::string display = variable(environment, "WAYLAND_DISPLAY");
    // An absolute path stays as it is.
    const auto path = std::filesystem::path(variable(environment, "XDG_RUNTIME_DIR")) / display;
    return !display.empty() && path.is_absolute() ? path.string() : "";
}

bool isWaylandSession(const EnvironmentReader& environment) {
    const std::string socket = compositorSocket(environment);
    return variable(environment, "XDG_SESSION_TYPE") == "wayland" ||
           (!socket.empty() && isAnswered(socket));
}

} // namespace calmora
