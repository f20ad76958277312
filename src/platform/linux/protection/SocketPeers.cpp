// SPDX-License-Identifier: MIT
#include "platform/linux/protection/SocketPeers.h"

#include "support/TextHelpers.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>

namespace calmora {
namespace {

std::optional<ProcessId> askListener(const std::string& path) {
    const FileDescriptor descriptor = connectedTo(path);
    ucred credentials{};
    socklen_t size = sizeof credentials;
    if (!descriptor ||
        getsockopt(descriptor.get(), SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0 ||
        credentials.pid <= 0) {
        return std::nullopt;
    }
    return credentials.pid;
}

} // namespace

FileDescriptor connectedTo(const std::string& path) {
    sockaddr_un address{};
    if (path.empty() || path.size() >= sizeof address.sun_path) {
        errno = path.empty() ? ENOENT : ENAMETOOLONG;
        return {};
    }
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), path.size());
    if (path.front() == '@') {
        address.sun_path[0] = '\0';
    }
    // A path ends at its zero byte, an abstract name at the given length.
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size() +
                                               (path.front() == '@' ? 0 : 1));
    FileDescriptor descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (descriptor &&
        connect(descriptor.get(), reinterpret_cast<const sockaddr*>(&address), length) != 0) {
        descriptor.reset(); // Keeps errno.
    }
    return descriptor;
}

std::optional<ProcessId> SocketPeers::listener(const std::string& path) {
    if (const auto found = known_.find(path); found != known_.end()) {
        if (reader_.startTime(found->second.process) == found->second.startTime) {
            return found->second.process;
        }
        known_.erase(found);
    }
    const auto process = askListener(path);
    const auto started = process ? reader_.startTime(*process) : std::nullopt;
    if (!started) {
        return std::nullopt;
    }
    known_[path] = {*process, *started};
    return process;
}

std::vector<std::string> sessionManagerSockets(std::string_view value) {
    std::vector<std::string> sockets;
    forEachPiece(value, ',', [&](std::string_view entry) {
        const std::size_t colon = entry.find(':');
        if ((entry.starts_with("local/") || entry.starts_with("unix/")) &&
            colon != std::string_view::npos && colon + 1 < entry.size()) {
            sockets.emplace_back(entry.substr(colon + 1));
        }
    });
    return sockets;
}

std::string pulseServerSocket(std::string_view value) {
    // May begin with "{machine}"; of several servers the first counts.
    if (value.starts_with('{')) {
        value.remove_prefix(std::min(value.find('}'), value.size() - 1) + 1);
    }
    value = value.substr(0, value.find(' '));
    if (value.starts_with("unix:")) {
        value.remove_prefix(5);
    }
    return value.starts_with('/') ? std::string(value) : std::string();
}

std::optional<ProcessId> sessionLeader(std::string_view text) {
    constexpr std::string_view key = "LEADER=";
    std::size_t at = text.starts_with(key) ? 0 : text.find("\nLEADER=");
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    at = text.find('=', at) + 1;
    ProcessId leader = 0;
    std::from_chars(text.data() + at, text.data() + text.size(), leader);
    return leader > 0 ? std::optional(leader) : std::nullopt;
}

} // namespace calmora
