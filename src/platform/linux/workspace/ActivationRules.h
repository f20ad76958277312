// SPDX-License-Identifier: MIT
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

/// Facts that decide a process's activation policy.
struct ActivationFacts {
    bool isProtected = false;
    /// It owns a panel or a desktop background.
    bool isShell = false;
    /// It has a window that users switch to.
    bool hasRegularWindow = false;
    /// It has an application window that stays out of task bars.
    bool hasHiddenWindow = false;
    /// It shows any kind of icon in the panel.
    bool hasTrayIcon = false;
    /// It had a window that users switch to.
    bool wasRegular = false;
    /// It was found by topmostAgents().
    bool isAgent = false;
};

/// The activation policy of a process; `prohibited` means no application.
[[nodiscard]] ActivationPolicy activationPolicy(const ActivationFacts& facts);

/// A possible background application.
struct AgentCandidate {
    ProcessId process = 0;
    std::uint64_t startTime = 0;
    /// Its application; absent without a desktop entry.
    std::optional<std::string> identifier = {};
    /// Its desktop entry is visible, or the user autostarts it.
    bool isInstalled = false;
    /// Its application's systemd unit or flatpak instance; empty if none.
    std::string unit = {};
    /// It is a shell running a script, like launchers of applications.
    bool isShellScript = false;
};

/// The background applications among the candidates: the topmost process of each tree, since its
/// helpers share its program, and the first of each unit. `applications` are already known: their
/// descendants and launcher scripts are left out. `parentOf` returns 0 without a parent.
[[nodiscard]] std::vector<ProcessId>
topmostAgents(std::span<const AgentCandidate> candidates, const std::set<ProcessId>& applications,
              const std::function<ProcessId(ProcessId)>& parentOf);

} // namespace calmora
