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

/// What is said about the process behind one window.
struct OwnerClaims {
    /// By the window system, which saw the client connect. That process may have ended since and
    /// left its connection to a child.
    std::optional<ProcessId> client = {};
    /// By the client itself (_NET_WM_PID).
    std::optional<ProcessId> property = {};
    /// The machine that the client says it runs on (WM_CLIENT_MACHINE); empty means unsaid.
    std::string machine = {};
    /// What the client calls itself (both parts of WM_CLASS).
    std::string instance = {};
    std::string className = {};
    /// When the client was first seen, as OwnerProcess::startTime counts.
    std::uint64_t firstSeen = std::numeric_limits<std::uint64_t>::max();
    /// The window system tells the process of each local client. One without a process then comes
    /// over the network.
    bool systemTells = true;
};

/// The process behind one window.
struct WindowOwner {
    std::optional<ProcessId> process;
    ProcessCertainty certainty = ProcessCertainty::unknown;
    bool isRemote = false;

    friend bool operator==(const WindowOwner&, const WindowOwner&) = default;
};

/// Settles the claims. The window system's word counts most. A client elsewhere is remote; so is
/// one that names another live process than the one that connected, which then only forwards.
///
/// No process that started after the client was first seen owns its windows: it has the id of one
/// that has ended. What a window says of itself counts only for a process of our own user, and,
/// where the window system would know better of any honest local client, only for a program that
/// goes by a name of the window's.
[[nodiscard]] WindowOwner windowOwner(const OwnerClaims& claims, std::string_view hostName,
                                      const OwnerLookup& lookUp);

/// Drops the claims on processes that have other windows for certain: a process with a connection
/// of its own needs nobody else's, so the claim is false.
void dropContestedClaims(std::span<TopLevelWindow> windows);

} // namespace calmora
