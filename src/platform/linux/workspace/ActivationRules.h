#pragma once

#include "platform/ProcessId.h"
#include "platform/Workspace.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace calmora {

/// What decides how a process presents itself.
struct ActivationFacts {
    bool isProtected = false;
    /// It owns a panel or a desktop background.
    bool isShell = false;
    /// It has a window that users switch to.
    bool hasRegularWindow = false;
    /// It has a window of an application that stays out of task bars.
    bool hasHiddenWindow = false;
    /// It shows an icon in the panel, of whichever kind.
    bool hasTrayIcon = false;
    /// It had a window that users switch to.
    bool wasRegular = false;
    /// It was found by topmostAgents().
    bool isAgent = false;
};

/// How the process presents itself; `prohibited` is no application at all.
[[nodiscard]] ActivationPolicy activationPolicy(const ActivationFacts& facts);

/// A process as far as it matters for which process of a tree is the application.
struct AgentCandidate {
    ProcessId process = 0;
    std::uint64_t startTime = 0;
    /// Which application it was started as; absent when no desktop entry tells.
    std::optional<std::string> identifier = {};
    /// The desktop entry is one that users see, or that they have the session start.
    bool isInstalled = false;
    /// The systemd unit of an application, or the instance of a flatpak, that it runs in; empty for
    /// none.
    std::string unit = {};
    /// It is a shell that runs a script, as launchers of applications are.
    bool isShellScript = false;
};

/// The candidates that are background applications: of each tree the topmost process only, since
/// its helpers share its program, and of each unit the first one. `applications` are those known
/// otherwise: whatever runs below them belongs to them, and the script that launched one is no
/// second one. `parentOf` gives 0 where there is none.
[[nodiscard]] std::vector<ProcessId>
topmostAgents(std::span<const AgentCandidate> candidates, const std::set<ProcessId>& applications,
              const std::function<ProcessId(ProcessId)>& parentOf);

} // namespace calmora
