// SPDX-License-Identifier: MIT
#pragma once

#include "support/FileDescriptor.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>

namespace calmora {

/// A socket that listens at a path, or at an abstract name after '@'.
inline FileDescriptor listeningAt(const std::string& path) {
    sockaddr_un address{AF_UNIX, {}};
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    std::size_t length = sizeof address;
    if (path.front() == '@') {
        address.sun_path[0] = '\0';
        length = offsetof(sockaddr_un, sun_path) + path.size();
    }
    FileDescriptor listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    ::unlink(path.c_str());
    if (::bind(listener.get(), reinterpret_cast<const sockaddr*>(&address),
               static_cast<socklen_t>(length)) != 0 ||
        ::listen(listener.get(), 8) != 0) {
        throw std::runtime_error("no socket");
    }
    return listener;
}

} // namespace calmora
