#pragma once

#include "platform/ProcessId.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace calmora {

/// Why a process must live.
enum class ProtectionReason {
    /// The process ids 0, 1 and 2 and everything below: init and the kernel's thread starter.
    firstProcesses,
    /// Nothing could be read of it.
    unreadable,
    kernelThread,
    anotherUser,
    ourselves,
    ourAncestor,
    /// The display server, the window manager, the tray, docks and desktops.
    display,
    /// The session manager or the leader of the login session.
    session,
    /// The owner of a bus name on which the session rests.
    busOwner,
    audioServer,
    /// It runs in a part of the session that holds no applications.
    controlGroup,
    /// It is known by name.
    name,
    /// The system starts it with every session, and it shows nothing that users switch to.
    autostart,
};

/// What one session looks like from inside, at one moment.
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

/// What one process looks like from outside.
struct ProtectionCandidate {
    ProcessId process = 0;
    /// The real user id; absent means that the process could not be read.
    std::optional<std::uint32_t> user;
    bool isKernelThread = false;
    /// Path below the root of the control groups; empty where unknown.
    std::string controlGroup;
    /// The kernel's name of the process, at most 15 bytes.
    std::string name;
    /// The base name of the executable; empty where it may not be read.
    std::string executable;
    /// It runs what an autostart entry of the system starts, see SessionAutostart.
    bool isAutostarted = false;
    /// It has a window that users switch to, which makes it an application.
    bool hasRegularWindow = false;
};

/// Why the process must live, as far as its id alone tells; absent means that nothing speaks
/// against it so far. Reads nothing.
[[nodiscard]] std::optional<ProtectionReason> protectionById(ProcessId process,
                                                             const SessionFacts& session);

/// Why the process must live; absent means that it may be signalled.
[[nodiscard]] std::optional<ProtectionReason> protection(const ProtectionCandidate& process,
                                                         const SessionFacts& session);

/// Whether a program of this name is part of every session that it runs in. Takes an executable's
/// base name, or the kernel's name of a process, which is cut after 15 bytes.
[[nodiscard]] bool isSessionProgram(std::string_view name);

} // namespace calmora
