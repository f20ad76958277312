// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace calmora {

/// Why a process is protected.
enum class ProtectionReason {
    /// Process ids up to 2: init and the kernel's thread starter.
    firstProcesses,
    /// It could not be read.
    unreadable,
    kernelThread,
    anotherUser,
    ourselves,
    ourAncestor,
    /// The display server, the window manager, the tray, docks and desktops.
    display,
    /// The session manager or the leader of the login session.
    session,
    /// The owner of an essential bus name.
    busOwner,
    audioServer,
    /// It runs in a control group of the session that holds no applications.
    controlGroup,
    /// Its name is listed.
    name,
    /// The system starts it with every session, and it has no window that users switch to.
    autostart,
};

/// Facts about our session at one moment.
struct SessionFacts {
    ProcessId self = 0;
    std::uint32_t user = 0;
    std::set<ProcessId> ancestors;
    std::set<ProcessId> display;
    std::set<ProcessId> session;
    std::set<ProcessId> busOwners;
    std::set<ProcessId> audioServers;
    /// Our own control group, as in ProtectionCandidate.
    std::string controlGroup;
};

/// Facts about the process to judge.
struct ProtectionCandidate {
    ProcessId process = 0;
    /// The real user id; absent if unreadable.
    std::optional<std::uint32_t> user;
    bool isKernelThread = false;
    /// Path below the root of the control groups; empty if unknown.
    std::string controlGroup;
    /// The kernel's name of the process, at most 15 bytes.
    std::string name;
    /// The base name of the executable; empty if unreadable.
    std::string executable;
    /// It runs what an autostart entry of the system starts, see SessionAutostart.
    bool isAutostarted = false;
    /// It has a window that users switch to, so it is an application.
    bool hasRegularWindow = false;
};

/// Why the process is protected, judged by its id alone; absent if the id gives no reason. Pure.
[[nodiscard]] std::optional<ProtectionReason> protectionById(ProcessId process,
                                                             const SessionFacts& session);

/// Why the process is protected; absent if it may be signalled.
[[nodiscard]] std::optional<ProtectionReason> protection(const ProtectionCandidate& process,
                                                         const SessionFacts& session);

/// Whether a program of this name is part of a session. `name` is an executable's base name or the
/// kernel's process name, cut after 15 bytes.
[[nodiscard]] bool isSessionProgram(std::string_view name);

} // namespace calmora
