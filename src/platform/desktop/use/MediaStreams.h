// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/UseSources.h"
#include "platform/desktop/use/StreamServer.h"

#include <optional>
#include <string>

namespace calmora {

class UseOwners;
class UseReading;

/// A machine as servers of streams tell it.
struct HostNames {
    std::string name = {};
    /// /etc/machine-id; empty if there is none.
    std::string machineId = {};

    [[nodiscard]] static HostNames ours();
};

/// What is in use through a stream, and which process says so.
struct StreamUse {
    UseKind kind = UseKind::playsSound;
    /// The id that the client itself gave, in its own pid namespace; 0 if none.
    ProcessId ownId = 0;
    /// The file name of the client's program; empty if not told.
    std::string program = {};
    /// The process that the kernel named to the server; 0 if none. A portal that opened the
    /// connection for a program in a sandbox, or the program itself.
    ProcessId peer = 0;

    friend bool operator==(const StreamUse&, const StreamUse&) = default;
};

/// Absent for what is no use: paused streams, meters of volume controls, streams of other machines
/// and those of the server itself. Pictures count as the screen, from which a camera is not told.
/// Source: PulseAudio's proplist.h; PipeWire's keys.h; what both tell when they run.
[[nodiscard]] std::optional<StreamUse> useOf(const MediaStream& stream, const HostNames& host);

/// Reads what plays and records sound from the sound server, and what receives pictures from
/// PipeWire. Their libraries are loaded for it; without one or its server there is nothing.
/// `owners` must outlive the reading.
void readStreams(UseReading& reading, const UseOwners& owners, const char* applicationName);

} // namespace calmora
