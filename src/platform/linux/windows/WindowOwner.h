#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/windows/WindowSystem.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// What is said about the process behind one window.
struct OwnerClaims {
    /// By the window system, which saw the client connect.
    std::optional<ProcessId> client;
    /// By the client itself (_NET_WM_PID).
    std::optional<ProcessId> property;
    /// The machine that the client says it runs on (WM_CLIENT_MACHINE); empty means unsaid.
    std::string machine;
};

/// The process behind one window.
struct WindowOwner {
    std::optional<ProcessId> process;
    ProcessCertainty certainty = ProcessCertainty::unknown;
    bool isRemote = false;

    friend bool operator==(const WindowOwner&, const WindowOwner&) = default;
};

/// The ids of a live process in each pid namespace that it is in, ours first; empty when there is
/// no such process.
using NamespaceIds = std::function<std::vector<ProcessId>(ProcessId)>;

/// Reads NamespaceIds from the kernel. Source: proc(5), /proc/PID/status, NSpid.
[[nodiscard]] std::vector<ProcessId> namespaceIds(ProcessId process);

/// Settles the claims. The window system's word counts most. A client elsewhere is remote; so is
/// one that names another live process than the one that connected, which then only forwards.
[[nodiscard]] WindowOwner windowOwner(const OwnerClaims& claims, std::string_view hostName,
                                      const NamespaceIds& idsOf);

} // namespace calmora
