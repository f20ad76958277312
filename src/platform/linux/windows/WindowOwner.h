// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/windows/OwnerProcess.h"
#include "platform/linux/windows/WindowSystem.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace calmora {

/// Claims about the process behind one window.
struct OwnerClaims {
    /// From the window system, which saw the client connect. That process may have ended and left
    /// its connection to a child.
    std::optional<ProcessId> client = {};
    /// From the client itself (_NET_WM_PID).
    std::optional<ProcessId> property = {};
    /// The machine that the client claims to run on (WM_CLIENT_MACHINE); empty if unknown.
    std::string machine = {};
    /// Both parts of WM_CLASS.
    std::string instance = {};
    std::string className = {};
    /// When the client was first seen, as OwnerProcess::startTime counts.
    std::uint64_t firstSeen = std::numeric_limits<std::uint64_t>::max();
    /// The window system knows the process of each local client, so that one without a process
    /// connects over the network.
    bool systemTells = true;
};

/// The process behind one window.
struct WindowOwner {
    std::optional<ProcessId> process;
    ProcessCertainty certainty = ProcessCertainty::unknown;
    bool isRemote = false;

    friend bool operator==(const WindowOwner&, const WindowOwner&) = default;
};

/// Decides between the claims, the window system's first. A client on another machine is remote; so
/// is one that names another live process than the one that connected, which only forwards.
///
/// A process that started after the client was first seen never owns its windows: its id was
/// reused. The window's own claim counts only for our user's processes and, where the window system
/// knows every honest local client, only for a program with one of the window's names.
[[nodiscard]] WindowOwner windowOwner(const OwnerClaims& claims, std::string_view hostName,
                                      const OwnerLookup& lookUp);

/// Drops claims on processes that certainly own other windows: a process with its own connection
/// does not use another one, so the claim is false.
void dropContestedClaims(std::span<TopLevelWindow> windows);

} // namespace calmora
