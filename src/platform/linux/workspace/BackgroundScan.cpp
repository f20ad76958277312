// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/BackgroundScan.h"

#include "platform/linux/identity/ApplicationIdentifier.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/xdg/ExecKey.h"
#include "platform/linux/xdg/InstalledApplications.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace calmora {

namespace {

constexpr std::size_t mostProcesses = 4096;
/// How long after its start a process may still replace its program: launcher scripts do.
constexpr std::uint64_t settlingSeconds = 15;
/// How often a process may be looked at in its first second.
constexpr std::uint64_t looksPerSecond = 3;

/// Programs that carry the identity and the unit of the sandbox that they keep up; what runs
/// inside is the application, and not their helper.
bool isSandboxLauncher(std::string_view comm) {
    return comm == "bwrap" || comm == "xdg-dbus-proxy";
}

/// Whether the process was started for the Wayland compositor of our session.
bool isOnOurCompositor(const ProcessReader& reader, ProcessId process) {
    const char* ours = std::getenv("WAYLAND_DISPLAY");
    return ours != nullptr && *ours != '\0' &&
           reader.environmentVariable(process, "WAYLAND_DISPLAY") == ours;
}

} // namespace

void BackgroundScan::scan(const InstalledApplications& installed, const std::string& display) {
    const std::uint64_t now = ticksNow();
    std::map<ProcessId, Known> current;
    for (const auto& [process, inode] : reader_.folders()) {
        const auto found = known_.find(process);
        const bool isKnown = found != known_.end() && found->second.inode == inode;
        // Asking for the owner costs more than the rest of a known process.
        if (!isKnown && reader_.folderOwner(process) != ::getuid()) {
            continue;
        }
        if (current.size() >= mostProcesses) {
            break;
        }
        Known known;
        if (isKnown) {
            known = std::move(found->second);
        } else {
            known.inode = inode;
        }
        if (!known.isSettled && now >= known.nextLook) {
            look(process, known, installed, display, now);
        }
        current.emplace_hint(current.end(), process, std::move(known));
    }
    known_ = std::move(current);
}

void BackgroundScan::look(ProcessId process, Known& known, const InstalledApplications& installed,
                          const std::string& display, std::uint64_t now) const {
    const DesktopEntryIndex& index = installed.index();
    std::string comm;
    if (known.comm.empty()) {
        const auto stat = reader_.stat(process);
        known.isSettled = stat && stat->isKernelThread;
        if (!stat || known.isSettled) {
            return;
        }
        comm = stat->comm;
        known.startTime = stat->startTime;
    } else {
        comm = reader_.comm(process);
    }
    const std::uint64_t age = now - std::min(now, known.startTime);
    known.nextLook = now + std::max(ticksPerSecond() / looksPerSecond, age);
    known.isSettled = age >= settlingSeconds * ticksPerSecond();
    if (comm == known.comm) {
        return;
    }
    known.comm = std::move(comm);
    known.candidate = {};
    if (isSandboxLauncher(known.comm)) {
        return;
    }
    const ProcessDetails outline = reader_.outline(process);
    if (outline.commandLine.empty()) {
        // Within execve(2), which sets the name before arguments and environment: look again.
        known.comm.clear();
        return;
    }
    // Few processes are applications, and reading all details costs four times as much.
    if (!mayBeInstalled(outline, index) && !reader_.hasOwnRoot(process)) {
        return;
    }
    const auto details = reader_.details(process);
    if (!details) {
        return;
    }
    known.candidate = {.process = process, .startTime = details->startTime};
    known.candidate.isShellScript = !details->commandLine.empty() &&
                                    isShell(details->commandLine.front()) &&
                                    !execKey(details->commandLine).empty();
    if (const auto identity = identifyWindowless(*details, index)) {
        known.candidate.identifier = identity->bundleIdentifier;
        known.candidate.isInstalled =
            (identity->isVisible || identity->isAutostart) &&
            !installed.sessionAutostart().starts(details->commandLine, details->executable) &&
            (display.empty() || reader_.display(process) == display ||
             isOnOurCompositor(reader_, process));
    }
    const auto sandbox = details->flatpak ? flatpakFolder(*details->flatpak) : std::nullopt;
    if (sandbox) {
        known.candidate.unit = *sandbox;
    } else if (!desktopIdsOfCgroup(details->cgroup).empty() || snapOfCgroup(details->cgroup)) {
        known.candidate.unit = details->cgroup;
    }
}

std::vector<ProcessId> BackgroundScan::agents(const std::set<ProcessId>& applications) const {
    std::vector<AgentCandidate> candidates;
    for (const auto& [process, known] : known_) {
        if (known.candidate.identifier || !known.candidate.unit.empty()) {
            candidates.push_back(known.candidate);
        }
    }
    return topmostAgents(candidates, applications,
                         [&](ProcessId process) { return reader_.parent(process); });
}

} // namespace calmora
