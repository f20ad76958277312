#include "platform/linux/windows/WaylandSession.h"

#include "support/FileDescriptor.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>

namespace calmora {

namespace {

/// Whether a process listens on a socket; true in doubt.
bool isAnswered(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        return true;
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    return !socket ||
           ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
               0 ||
           (errno != ENOENT && errno != ENOTDIR && errno != ECONNREFUSED);
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
