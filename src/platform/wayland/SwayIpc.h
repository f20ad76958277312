// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "support/FileDescriptor.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// The kinds of messages that are used. Source: sway-ipc(7).
enum class SwayMessageType : std::uint32_t {
    runCommand = 0,
    subscribe = 2,
    getTree = 4,
    workspaceEvent = 0x80000000,
    windowEvent = 0x80000003,
    shutdownEvent = 0x80000006,
};

struct SwayMessage {
    SwayMessageType type = SwayMessageType::runCommand;
    std::string payload = {};
};

/// One connection to sway's socket. Whatever is at its other end, nothing here takes longer than
/// asked for or keeps more than 4 MiB. Main thread.
class SwayIpc {
  public:
    using Deadline = std::chrono::steady_clock::time_point;

    /// Connects at once or fails.
    explicit SwayIpc(const std::string& path);

    /// False after a failure, an answer that is no message, or the end of the connection.
    [[nodiscard]] bool isOpen() const { return static_cast<bool>(socket_); }

    /// Whether it could not connect because nobody listens at the path.
    [[nodiscard]] bool isRefused() const { return isRefused_; }

    /// To be watched for reading; negative when not open.
    [[nodiscard]] int descriptor() const { return socket_.get(); }

    /// The process that listens at the socket; absent outside of our process namespace.
    /// Source: unix(7), SO_PEERCRED.
    [[nodiscard]] std::optional<ProcessId> server() const;

    /// The payload of the reply, for which it waits until `deadline` at most; events that precede
    /// it are dropped. Absent when none comes in time, which ends the connection.
    [[nodiscard]] std::optional<std::string> request(SwayMessageType type, std::string_view payload,
                                                     Deadline deadline);

    /// The messages that have arrived. Never waits.
    [[nodiscard]] std::vector<SwayMessage> received();

  private:
    [[nodiscard]] bool send(std::string_view bytes, Deadline deadline);
    [[nodiscard]] bool await(short events, Deadline deadline) const;
    bool readSome();
    [[nodiscard]] std::optional<SwayMessage> next();

    FileDescriptor socket_;
    bool isRefused_ = false;
    std::string buffer_;
};

} // namespace calmora
