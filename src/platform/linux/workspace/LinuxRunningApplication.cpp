// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/LinuxRunningApplication.h"

#include "platform/Clock.h"
#include "platform/ProcessTable.h"
#include "platform/linux/proc/ProcessMemory.h"
#include "platform/linux/proc/ProtectedProcesses.h"
#include "platform/linux/windows/WindowRoles.h"
#include "platform/linux/workspace/BusApplications.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <utility>

namespace calmora {

namespace {

/// How long an application may take to hide its windows, and the polling interval.
constexpr std::chrono::milliseconds hidingTime{300};
constexpr std::chrono::milliseconds hidingStep{20};
/// How long a list of windows may be empty while window managers change.
constexpr std::chrono::milliseconds settlingTime{50};

} // namespace

LinuxRunningApplication::LinuxRunningApplication(
    const WorkspaceSources& sources, QuitRequests& requests,
    std::shared_ptr<const ListedApplication> application, std::string bundle)
    : sources_(sources), requests_(requests), application_(std::move(application)),
      bundle_(std::move(bundle)) {}

std::optional<std::string> LinuxRunningApplication::bundleIdentifier() const {
    return application_->identity.instanceIdentifier();
}

std::optional<std::string> LinuxRunningApplication::bundleURL() const {
    return bundle_;
}

std::optional<std::filesystem::path> LinuxRunningApplication::executableURL() const {
    return application_->process.executable;
}

ProcessId LinuxRunningApplication::processIdentifier() const {
    return application_->process.pid;
}

bool LinuxRunningApplication::isTerminated() const {
    if (!application_->candidates.empty()) {
        return std::ranges::none_of(sources_.windows.windows(),
                                    [this](const auto& window) { return isOpenWindow(window); });
    }
    const ProcessId process = processIdentifier();
    return sources_.memory.startTime(process) != application_->process.startTime ||
           sources_.memory.isGone(process);
}

bool LinuxRunningApplication::hasSeveralCandidates() const {
    return !application_->candidates.empty() ||
           isOneOfSeveralOwners(sources_.windows.windows(), processIdentifier());
}

std::vector<ProcessId> LinuxRunningApplication::processes() const {
    return application_->candidates.empty() ? std::vector{processIdentifier()}
                                            : application_->candidates;
}

bool LinuxRunningApplication::wasListed(const TopLevelWindow& window) const {
    return std::ranges::find(application_->windows, window.id, &TopLevelWindow::id) !=
           application_->windows.end();
}

/// With several candidates: whether the window is the row's, also a new one that may be.
bool LinuxRunningApplication::isOpenWindow(const TopLevelWindow& window) const {
    const auto owner = window.listedProcess();
    return wasListed(window) || (owner && window.certainty != ProcessCertainty::certain &&
                                 std::ranges::binary_search(application_->candidates, *owner));
}

bool LinuxRunningApplication::isProtectedNow() const {
    return std::ranges::any_of(processes(), [this](ProcessId process) {
        return sources_.protection.isProtectedNow(process);
    });
}

/// Remembers a request; false while the application asks because of an earlier one.
bool LinuxRunningApplication::beginRequest(std::span<const TopLevelWindow> windows) {
    requests_.forgetEnded([this](ProcessId asked, std::uint64_t startTime) {
        return sources_.memory.startTime(asked) != startTime || sources_.memory.isGone(asked);
    });
    std::vector<std::pair<ProcessId, std::uint64_t>> asked;
    for (const ProcessId process : processes()) {
        if (process == processIdentifier()) {
            asked.emplace_back(process, application_->process.startTime);
        } else if (sources_.memory.hold(process)) {
            asked.emplace_back(process, sources_.memory.startTime(process).value_or(0));
        }
    }
    for (const auto& [process, startTime] : asked) {
        if (requests_.isAsking(process, startTime, windows)) {
            return false;
        }
    }
    for (const auto& [process, startTime] : asked) {
        requests_.remember(process, startTime, windows);
    }
    return true;
}

bool LinuxRunningApplication::terminate() {
    if (isTerminated() || isProtectedNow()) {
        return false;
    }
    const std::vector<TopLevelWindow> before = sources_.windows.windowsReadAfresh();
    if (!beginRequest(before)) {
        return false;
    }
    if (!application_->candidates.empty()) {
        return requestClose();
    }
    const bool hides = hidesWhenClosed();
    if (hides && quitOverBus()) {
        return true;
    }
    if (requestClose()) {
        if (hides) {
            endOnceHidden(before);
        }
        return true;
    }
    return quitOverBus() || endInsteadOfAsking();
}

bool LinuxRunningApplication::forceTerminate() {
    if (isTerminated()) {
        return false;
    }
    const bool sent = sources_.processes.sendSignal(processIdentifier(), SIGTERM) == 0;
    if (sent) {
        // May fail because the process is gone already.
        sources_.processes.sendSignal(processIdentifier(), SIGCONT);
    }
    return sent;
}

std::vector<WindowId> LinuxRunningApplication::askableWindows() const {
    const std::vector<TopLevelWindow>& windows = sources_.windows.windows();
    const auto roles = windowRoles(windows);
    std::vector<WindowId> result;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const bool isOwn = application_->candidates.empty()
                               ? windows[i].listedProcess() == processIdentifier()
                               : wasListed(windows[i]);
        if (isOwn && roles[i].mayBeAsked) {
            result.push_back(windows[i].id);
        }
    }
    return result;
}

/// Whether `windows`, all that there are, allow a signal instead of a request.
bool LinuxRunningApplication::mayBeSignalled(std::span<const TopLevelWindow> windows) const {
    return sources_.windows.isAlive() && sources_.windows.coversAllWindows() &&
           std::ranges::none_of(windows, [this](const TopLevelWindow& window) {
               if (window.process) {
                   return window.process == processIdentifier() &&
                          window.certainty != ProcessCertainty::certain;
               }
               // It was listed for a window that is no longer known as its own.
               return wasListed(window);
           });
}

bool LinuxRunningApplication::hidesWhenClosed() const {
    const ProcessId process = processIdentifier();
    const auto icons = sources_.windows.trayIconProcesses();
    return sources_.bus.ownsStatusItem(process) || sources_.bus.isMediaPlayer(process) ||
           std::ranges::find(icons, process) != icons.end();
}

bool LinuxRunningApplication::quitOverBus() {
    bool sent = sources_.bus.quitMediaPlayer(processIdentifier());
    for (const TopLevelWindow& window : sources_.windows.windows()) {
        const bool isOwn =
            window.process == processIdentifier() && window.certainty == ProcessCertainty::certain;
        sent = sent || (isOwn && !window.gtkBusName.empty() &&
                        sources_.bus.activateQuit({window.gtkBusName, window.gtkObjectPath}));
    }
    if (sent) {
        sources_.bus.flush();
    }
    return sent;
}

bool LinuxRunningApplication::requestClose() {
    bool sent = false;
    for (const WindowId window : askableWindows()) {
        // The owner is compared by id, which must still mean this process. Candidates may have
        // ended since they were listed.
        const auto& now = sources_.windows.windows();
        const auto found = std::ranges::find(now, window, &TopLevelWindow::id);
        const auto owner = application_->candidates.empty() ? std::optional(processIdentifier())
                           : found == now.end()             ? std::nullopt
                                                            : found->listedProcess();
        sent = (owner && !isTerminated() && sources_.windows.requestClose(window, *owner)) || sent;
    }
    // The caller sleeps next, so nothing else would send the requests.
    sources_.windows.flush();
    return sent;
}

bool LinuxRunningApplication::endInsteadOfAsking() {
    if (std::ranges::any_of(application_->windows, &TopLevelWindow::canBeAsked)) {
        // Windows may be missing while a window manager is being replaced.
        sources_.clock.sleep(settlingTime);
    }
    const std::vector<TopLevelWindow> windows = sources_.windows.windowsReadAfresh();
    if (!askableWindows().empty()) {
        return requestClose();
    }
    return mayBeSignalled(windows) &&
           sources_.processes.sendSignal(processIdentifier(), SIGTERM) == 0;
}

/// Waits here because the main loop does not run during a quit. The total time is the same: the
/// caller waits for the process's end anyway, and an ended process stops the wait.
void LinuxRunningApplication::endOnceHidden(std::span<const TopLevelWindow> before) {
    const ProcessId process = processIdentifier();
    const auto isOwn = [&](const TopLevelWindow& window) {
        return window.listedProcess() == process;
    };
    const auto deadline = sources_.clock.ticks() + hidingTime;
    if (!mayBeSignalled(before)) {
        return;
    }
    while (sources_.clock.ticks() < deadline) {
        sources_.clock.sleep(hidingStep);
        const std::vector<TopLevelWindow>& windows = sources_.windows.windows();
        const bool hasNewWindow = std::ranges::any_of(windows, [&](const TopLevelWindow& window) {
            return isOwn(window) &&
                   std::ranges::find(before, window.id, &TopLevelWindow::id) == before.end();
        });
        if (isTerminated() || hasNewWindow ||
            requests_.isAsking(process, application_->process.startTime, windows)) {
            return;
        }
    }
    const std::vector<TopLevelWindow>& windows = sources_.windows.windowsReadAfresh();
    if (std::ranges::none_of(windows, isOwn) && mayBeSignalled(windows)) {
        sources_.processes.sendSignal(process, SIGTERM);
    }
}

} // namespace calmora
