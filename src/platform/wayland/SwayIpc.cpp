// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayIpc.h"

#include "platform/linux/protection/SocketPeers.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>

namespace calmora {
namespace {

constexpr std::string_view magic = "i3-ipc";
/// The magic string, the length of the payload and the type, both in the machine's byte order.
constexpr std::size_t headerSize = 14;
constexpr std::size_t largestPayload = 4U << 20U;
/// A flood of events must not keep the main loop for longer than this many reads.
constexpr int mostReads = 64;

std::string encode(SwayMessageType type, std::string_view payload) {
    std::string bytes(headerSize, '\0');
    const auto length = static_cast<std::uint32_t>(payload.size());
    std::memcpy(bytes.data(), magic.data(), magic.size());
    std::memcpy(&bytes[magic.size()], &length, sizeof length);
    std::memcpy(&bytes[magic.size() + sizeof length], &type, sizeof type);
    return bytes.append(payload);
}

} // namespace

SwayIpc::SwayIpc(const std::string& path) : socket_(connectedTo(path)) {
    // One that is only busy has a full queue; and we may be out of descriptors.
    isRefused_ = !socket_ && errno != EAGAIN && errno != EMFILE && errno != ENFILE;
}

std::optional<ProcessId> SwayIpc::server() const {
    ucred credentials{};
    socklen_t size = sizeof credentials;
    if (!isOpen() ||
        ::getsockopt(socket_.get(), SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0 ||
        credentials.pid <= 0) {
        return std::nullopt;
    }
    return credentials.pid;
}

std::optional<std::string> SwayIpc::request(SwayMessageType type, std::string_view payload,
                                            Deadline deadline) {
    bool isGoing = isOpen() && send(encode(type, payload), deadline);
    while (isGoing) {
        if (auto message = next()) {
            if (message->type == type) {
                return std::move(message->payload);
            }
        } else {
            isGoing = isOpen() && await(POLLIN, deadline) && readSome();
        }
    }
    // What comes late would be taken for the reply to another request.
    socket_.reset();
    return std::nullopt;
}

std::vector<SwayMessage> SwayIpc::received() {
    std::vector<SwayMessage> messages;
    bool isWhole = true;
    for (int i = 0; i < mostReads && isWhole && isOpen(); ++i) {
        isWhole = readSome();
        while (auto message = next()) {
            messages.push_back(*std::move(message));
        }
    }
    return messages;
}

bool SwayIpc::send(std::string_view bytes, Deadline deadline) {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        } else if ((errno != EAGAIN && errno != EINTR) || !await(POLLOUT, deadline)) {
            return false;
        }
    }
    return true;
}

bool SwayIpc::await(short events, Deadline deadline) const {
    pollfd entry{socket_.get(), events, 0};
    int ready = -1;
    do {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            return false;
        }
        ready = ::poll(&entry, 1, static_cast<int>(left.count()));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

/// False when nothing is there to read; closes at the end of the connection.
bool SwayIpc::readSome() {
    std::array<char, 65536> chunk{};
    const ssize_t size = ::recv(socket_.get(), chunk.data(), chunk.size(), 0);
    if (size > 0) {
        buffer_.append(chunk.data(), static_cast<std::size_t>(size));
        return true;
    }
    if (size == 0 || (errno != EAGAIN && errno != EINTR)) {
        socket_.reset();
    }
    return false;
}

/// The first whole message of the buffer; closes where there can never be one.
std::optional<SwayMessage> SwayIpc::next() {
    if (buffer_.size() < headerSize) {
        return std::nullopt;
    }
    std::uint32_t length = 0;
    SwayMessage message;
    std::memcpy(&length, &buffer_[magic.size()], sizeof length);
    std::memcpy(&message.type, &buffer_[magic.size() + sizeof length], sizeof message.type);
    if (!buffer_.starts_with(magic) || length > largestPayload) {
        buffer_.clear();
        socket_.reset();
        return std::nullopt;
    }
    if (buffer_.size() < headerSize + length) {
        return std::nullopt;
    }
    message.payload = buffer_.substr(headerSize, length);
    buffer_.erase(0, headerSize + length);
    return message;
}

} // namespace calmora
