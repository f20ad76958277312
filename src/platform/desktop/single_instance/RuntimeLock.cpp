// SPDX-License-Identifier: MIT
#include "platform/desktop/single_instance/RuntimeLock.h"

#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace calmora {
namespace {

/// The address of a socket in an open folder. A path through the descriptor is always short enough.
sockaddr_un addressIn(const FileDescriptor& folder, const std::string& name) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/proc/self/fd/" + std::to_string(folder.get()) + '/' + name;
    if (path.size() < sizeof address.sun_path) {
        std::memcpy(address.sun_path, path.data(), path.size());
    }
    return address;
}

} // namespace

RuntimeLock::RuntimeLock(const std::filesystem::path& folder, const std::string& name)
    : folder_(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)),
      socketName_(name + ".socket") {
    if (!folder_) {
        return;
    }
    lock_ = FileDescriptor(openat(folder_.get(), (name + ".lock").c_str(),
                                  O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    take();
}

void RuntimeLock::take() {
    if (!lock_) {
        return;
    }
    isHeldElsewhere_ = false;
    if (flock(lock_.get(), LOCK_EX | LOCK_NB) != 0) {
        isHeldElsewhere_ = errno == EWOULDBLOCK;
        return;
    }
    // The process that bound an earlier socket has ended: the lock is ours.
    unlinkat(folder_.get(), socketName_.c_str(), 0);
    FileDescriptor listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const sockaddr_un address = addressIn(folder_, socketName_);
    if (bind(listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        listen(listener.get(), 8) == 0) {
        socket_ = std::move(listener);
    }
}

bool RuntimeLock::acceptAttempt() const {
    return static_cast<bool>(
        FileDescriptor(accept4(socket_.get(), nullptr, nullptr, SOCK_CLOEXEC)));
}

bool RuntimeLock::askHolder(std::chrono::milliseconds timeout) {
    using Clock = std::chrono::steady_clock;
    using std::chrono::milliseconds;
    const sockaddr_un address = addressIn(folder_, socketName_);
    const Clock::time_point end = Clock::now() + timeout;
    const auto left = [&] {
        return std::max(std::chrono::ceil<milliseconds>(end - Clock::now()), milliseconds(0));
    };
    while (isHeldElsewhere_) {
        const FileDescriptor client(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        if (connect(client.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
            0) {
            pollfd taken{client.get(), POLLIN, 0};
            char byte = 0;
            // The holder closes what it took; if it ends without, there is an error.
            if (poll(&taken, 1, static_cast<int>(left().count())) > 0 &&
                read(client.get(), &byte, 1) == 0) {
                return true;
            }
        }
        if (left() == milliseconds(0)) {
            return false;
        }
        // It may have the lock but not yet its socket, or neither any more.
        constexpr int pauseMilliseconds = 20;
        poll(nullptr, 0, pauseMilliseconds);
        take();
    }
    return false;
}

std::string RuntimeLock::nameForDisplay(const std::string& applicationId) {
    std::string name = applicationId;
    for (const char* variable : {"WAYLAND_DISPLAY", "DISPLAY"}) {
        if (const char* display = std::getenv(variable); display && *display != 0) {
            name += std::string("-") + display;
            break;
        }
    }
    std::ranges::replace(name, '/', '_');
    return name;
}

std::filesystem::path RuntimeLock::userFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation).toStdString();
}

} // namespace calmora
