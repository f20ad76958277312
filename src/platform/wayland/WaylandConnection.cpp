// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandConnection.h"

#include "platform/linux/protection/SocketPeers.h"
#include "support/FileDescriptor.h"
#include "support/Owned.h"

#include <algorithm>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <wayland-client-protocol.h>

namespace calmora {
namespace {

const wl_callback_listener answered{
    [](void* isAnswered, wl_callback*, std::uint32_t) { *static_cast<bool*>(isAnswered) = true; }};

} // namespace

WaylandConnection::WaylandConnection(const std::string& path) {
    if (const FileDescriptor socket = connectedTo(path)) {
        // The display owns its descriptor, also when it cannot be made.
        display_.reset(wl_display_connect_to_fd(::fcntl(socket.get(), F_DUPFD_CLOEXEC, 0)));
    }
}

int WaylandConnection::descriptor() const {
    return display_ ? wl_display_get_fd(get()) : -1;
}

std::optional<ProcessId> WaylandConnection::server() const {
    ucred credentials{};
    socklen_t size = sizeof credentials;
    if (!display_ ||
        ::getsockopt(descriptor(), SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0 ||
        credentials.pid <= 0) {
        return std::nullopt;
    }
    return credentials.pid;
}

void WaylandConnection::dispatch() {
    if (isOpen()) {
        dispatchUntil(std::chrono::steady_clock::now());
    }
}

bool WaylandConnection::roundTrip(std::chrono::milliseconds timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    if (!isOpen()) {
        return false;
    }
    bool isAnswered = false;
    const Owned<wl_callback, wl_callback_destroy> callback(wl_display_sync(get()));
    wl_callback_add_listener(callback.get(), &answered, &isAnswered);
    while (!isAnswered && isOpen() && dispatchUntil(deadline)) {
    }
    return isAnswered;
}

bool WaylandConnection::dispatchUntil(std::chrono::steady_clock::time_point deadline) {
    while (wl_display_prepare_read(get()) != 0) {
        if (wl_display_dispatch_pending(get()) < 0) {
            return false;
        }
    }
    wl_display_flush(get());
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    pollfd entry{descriptor(), POLLIN, 0};
    if (::poll(&entry, 1, std::max(0, static_cast<int>(left.count()))) <= 0) {
        wl_display_cancel_read(get());
        return false;
    }
    return wl_display_read_events(get()) == 0 && wl_display_dispatch_pending(get()) >= 0;
}

} // namespace calmora
