#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/proc/ProcessReader.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// Tells which process listens on a Unix socket. A server that was found is not disturbed again
/// before it has ended. Main thread.
class SocketPeers {
  public:
    /// `reader` must outlive this object.
    explicit SocketPeers(const ProcessReader& reader) : reader_(reader) {}

    /// The process that listens at `path`, which begins with '@' for the abstract kind.
    /// Absent when nobody does, or when it lives outside of our process namespace.
    /// Connects and hangs up at once; never waits.  Source: unix(7), SO_PEERCRED.
    [[nodiscard]] std::optional<ProcessId> listener(const std::string& path);

  private:
    struct Peer {
        ProcessId process = 0;
        std::uint64_t startTime = 0;
    };

    const ProcessReader& reader_;
    std::map<std::string, Peer> known_;
};

/// The local sockets in the value of SESSION_MANAGER, as listener() takes them.
/// Source: X Session Management Library, "Local/…" network ids.
[[nodiscard]] std::vector<std::string> sessionManagerSockets(std::string_view value);

/// The socket of a PULSE_SERVER value; empty when it names none on this machine.
/// Source: PulseAudio, "Server String Format".
[[nodiscard]] std::string pulseServerSocket(std::string_view value);

/// The leader out of the text of logind's file of a session; absent where there is none.
[[nodiscard]] std::optional<ProcessId> sessionLeader(std::string_view text);

} // namespace calmora
