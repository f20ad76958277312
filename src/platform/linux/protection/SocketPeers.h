// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/proc/ProcessReader.h"
#include "support/FileDescriptor.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// Finds the processes that listen on Unix sockets. Reconnects to a known server only after it has
/// ended. Main thread.
class SocketPeers {
  public:
    /// `reader` must outlive this object.
    explicit SocketPeers(const ProcessReader& reader) : reader_(reader) {}

    /// The process that listens at `path`, which begins with '@' for an abstract socket. Absent if
    /// there is none or it is outside our pid namespace. Connects and disconnects at once; never
    /// waits. Source: unix(7), SO_PEERCRED.
    [[nodiscard]] std::optional<ProcessId> listener(const std::string& path);

  private:
    struct Peer {
        ProcessId process = 0;
        std::uint64_t startTime = 0;
    };

    const ProcessReader& reader_;
    std::map<std::string, Peer> known_;
};

/// A connection to the Unix socket at `path`, which begins with '@' for an abstract socket. Empty
/// with errno set on failure; never waits.
[[nodiscard]] FileDescriptor connectedTo(const std::string& path);

/// The local sockets in the value of SESSION_MANAGER, as listener() takes them.
/// Source: X Session Management Library, "Local/…" network ids.
[[nodiscard]] std::vector<std::string> sessionManagerSockets(std::string_view value);

/// The socket of a PULSE_SERVER value; empty if it names no local one. Source: PulseAudio, "Server
/// String Format".
[[nodiscard]] std::string pulseServerSocket(std::string_view value);

/// The leader in the text of a logind session file; absent if none.
[[nodiscard]] std::optional<ProcessId> sessionLeader(std::string_view text);

} // namespace calmora
