// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace calmora {

class ProcessReader;

/// A process that may be connected to a socket.
struct SocketClient {
    ProcessId process = 0;
    /// What its program is called, in lower case: the names of the process, of its executable and
    /// of what its command line runs.
    std::vector<std::string> names = {};
    /// The desktop entries that it may have been started from, by its control group.
    std::vector<std::string> desktopIds = {};
};

/// The processes of our user that are connected to the listening socket at `path`, by ascending
/// id. Of several that share a connection the oldest counts, which handed it on. Where nobody can
/// be seen to hold some connection, the processes that hide their files are among them, too.
/// Empty when the kernel does not tell.  Cost: 3 to 50 ms with a few hundred processes.
/// Source: sock_diag(7), UDIAG_SHOW_PEER; proc(5), /proc/PID/fd.
[[nodiscard]] std::vector<SocketClient> socketClients(const std::string& path,
                                                      const ProcessReader& reader);

/// What a program is called, as SocketClient has it. `executable` is absent where it may not be
/// read. An interpreter's own name tells nothing and is left out.
[[nodiscard]] std::vector<std::string> programNames(const std::string& name,
                                                    const std::optional<std::string>& executable,
                                                    const std::vector<std::string>& commandLine);

/// The clients, by ascending id, whose program has one of the names in `programs`.
[[nodiscard]] std::vector<ProcessId> clientsCalled(std::span<const std::string> programs,
                                                   std::span<const SocketClient> clients);

} // namespace calmora
