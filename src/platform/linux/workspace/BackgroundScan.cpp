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

/// Of our user's processes.
constexpr std::size_t mostProcesses = 4096;
constexpr std::size_t mostKnown = 4 * mostProcesses;
/// How long after its start a process may still replace its program: launcher scripts do.
constexpr std::uint64_t settlingSeconds = 15;
/// Seconds for which an unchanged turnover is believed: in containers it may be a copy of an older
/// one.
constexpr std::uint64_t longestTrust = 30;
/// How often a process may be looked at in its first second.
constexpr std::uint64_t looksPerSecond = 3;

/// Programs that carry the identity and the unit of the sandbox that they keep up; what runs
/// inside is the application, and not their helper.
bool isSandboxLauncher(std::string_view comm) {
    return comm == "bwrap" || comm == "xdg-dbus-proxy";
}

/// Whether the process was started for our X display or our Wayland compositor. True where we have
/// neither.
bool isInOurSession(const ProcessReader& reader, ProcessId process, const std::string& display) {
    const char* variable = std::getenv("WAYLAND_DISPLAY");
    const std::string compositor = variable != nullptr ? variable : "";
    if (display.empty() && compositor.empty()) {
        return true;
    }
    return (!display.empty() && reader.display(process) == display) ||
           (!compositor.empty() &&
            reader.environmentVariable(process, "WAYLAND_DISPLAY") == compositor);
}

} // namespace

void BackgroundScan::forget() {
    known_.clear();
    turnover_.reset();
}

bool BackgroundScan::scan(const InstalledApplications& installed, const std::string& display) {
    const std::uint64_t now = ticksNow();
    const auto turnover = reader_.turnover();
    bool differs = false;
    if (!turnover || turnover != turnover_ || now - listedAt_ >= longestTrust * ticksPerSecond()) {
        turnover_ = turnover; // What starts while they are listed is found next time.
        listedAt_ = now;
        differs = list();
    }
    std::size_t ours = 0;
    for (auto& [process, known] : known_) {
        if (!known.isSettled && now >= known.nextLook && ours < mostProcesses) {
            differs = look(process, known, installed, display, now) || differs;
        }
        ours += known.isOurs ? 1 : 0;
    }
    return differs;
}

bool BackgroundScan::list() {
    ++lists_;
    bool hasEnded = false;
    for (const auto& [process, inode] : reader_.folders()) {
        if (known_.size() >= mostKnown && !known_.contains(process)) {
            continue;
        }
        const auto [found, isNew] = known_.try_emplace(process);
        Known& known = found->second;
        if (!isNew && known.inode != inode) {
            hasEnded = hasEnded || known.candidate.process != 0;
            known = {};
        }
        known.inode = inode;
        known.list = lists_;
    }
    std::erase_if(known_, [&](const auto& entry) {
        const bool isGone = entry.second.list != lists_;
        hasEnded = hasEnded || (isGone && entry.second.candidate.process != 0);
        return isGone;
    });
    return hasEnded;
}

bool BackgroundScan::look(ProcessId process, Known& known, const InstalledApplications& installed,
                          const std::string& display, std::uint64_t now) const {
    // The owner may change: who logs in starts as root.
    known.isOurs = reader_.folderOwner(process) == ::getuid();
    std::string comm;
    if (!known.isOurs) {
        known.startTime = known.startTime == 0 ? now : known.startTime;
    } else if (known.comm.empty()) {
        const auto stat = reader_.stat(process);
        known.isSettled = stat && stat->isKernelThread;
        if (!stat || known.isSettled) {
            return false;
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
        return false;
    }
    known.comm = std::move(comm);
    const bool wasCandidate = known.candidate.process != 0;
    known.candidate = {};
    read(process, known, installed, display);
    return wasCandidate || known.candidate.process != 0;
}

void BackgroundScan::read(ProcessId process, Known& known, const InstalledApplications& installed,
                          const std::string& display) const {
    const DesktopEntryIndex& index = installed.index();
    if (known.comm.empty() || isSandboxLauncher(known.comm)) {
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
            isInOurSession(reader_, process, display);
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
