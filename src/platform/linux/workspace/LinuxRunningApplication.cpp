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
    QuitRequest request = beginTerminate();
    while (request.pause) {
        sources_.clock.sleep(*request.pause);
        request = continueTerminate();
    }
    return request.wasSent;
}

QuitRequest LinuxRunningApplication::beginTerminate() {
    rest_ = Rest::nothing;
    if (isTerminated() || isProtectedNow()) {
        return {};
    }
    before_ = sources_.windows.windowsReadAfresh();
    return beginRequest(before_) ? askForTheFirstTime() : QuitRequest();
}

QuitRequest LinuxRunningApplication::askForTheFirstTime() {
    if (!application_->candidates.empty()) {
        return {.wasSent = requestClose()};
    }
    const bool hides = hidesWhenClosed();
    if (hides && quitOverBus()) {
        return {.wasSent = true};
    }
    if (requestClose()) {
        if (hides && mayBeSignalled(before_)) {
            rest_ = Rest::hiding;
            hidingDeadline_ = sources_.clock.ticks() + hidingTime;
            return {.pause = hidingStep};
        }
        return {.wasSent = true};
    }
    if (quitOverBus()) {
        return {.wasSent = true};
    }
    if (std::ranges::any_of(application_->windows, &TopLevelWindow::canBeAsked)) {
        // Windows may be missing while a window manager is being replaced.
        rest_ = Rest::settling;
        return {.pause = settlingTime};
    }
    return {.wasSent = endInsteadOfAsking()};
}

QuitRequest LinuxRunningApplication::continueTerminate() {
    const Rest rest = std::exchange(rest_, Rest::nothing);
    if (isTerminated()) { // The id may name another process by now.
        return {.wasSent = rest == Rest::hiding};
    }
    switch (rest) {
    case Rest::settling:
        return {.wasSent = endInsteadOfAsking()};
    case Rest::hiding:
        return endOnceHidden();
    case Rest::nothing:
        break;
    }
    return {};
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
    const std::vector<TopLevelWindow> windows = sources_.windows.windowsReadAfresh();
    if (!askableWindows().empty()) {
        return requestClose();
    }
    return mayBeSignalled(windows) &&
           sources_.processes.sendSignal(processIdentifier(), SIGTERM) == 0;
}

/// The pauses cost no time: the caller waits for the process's end anyway, and an ended process
/// stops them.
QuitRequest LinuxRunningApplication::endOnceHidden() {
    const ProcessId process = processIdentifier();
    const auto isOwn = [&](const TopLevelWindow& window) {
        return window.listedProcess() == process;
    };
    const std::vector<TopLevelWindow>& windows = sources_.windows.windows();
    const bool hasNewWindow = std::ranges::any_of(windows, [&](const TopLevelWindow& window) {
        return isOwn(window) &&
               std::ranges::find(before_, window.id, &TopLevelWindow::id) == before_.end();
    });
    if (isTerminated() || hasNewWindow ||
        requests_.isAsking(process, application_->process.startTime, windows)) {
        return {.wasSent = true};
    }
    if (sources_.clock.ticks() < hidingDeadline_) {
        rest_ = Rest::hiding;
        return {.wasSent = true, .pause = hidingStep};
    }
    const std::vector<TopLevelWindow>& fresh = sources_.windows.windowsReadAfresh();
    if (std::ranges::none_of(fresh, isOwn) && mayBeSignalled(fresh)) {
        sources_.processes.sendSignal(process, SIGTERM);
    }
    return {.wasSent = true};
}

void LinuxRunningApplication::probe() {
    for (const WindowId window : askableWindows()) {
        sources_.windows.ping(window);
    }
    sources_.windows.flush();
}

bool LinuxRunningApplication::isUnresponsive() const {
    return std::ranges::any_of(
        askableWindows(), [this](WindowId window) { return sources_.windows.owesAnswer(window); });
}

std::optional<WindowId> LinuxRunningApplication::question() const {
    const std::vector<TopLevelWindow>& windows = sources_.windows.windows();
    for (const ProcessId process : processes()) {
        const auto startTime = sources_.memory.startTime(process);
        const auto found =
            startTime ? requests_.question(process, *startTime, windows) : std::nullopt;
        if (found) {
            return found;
        }
    }
    // One that was open before the request holds it up as well, unless the application hangs.
    return isUnresponsive() ? std::nullopt : modalDialog(windows, processIdentifier());
}

bool LinuxRunningApplication::isAsking() const {
    return question().has_value();
}

bool LinuxRunningApplication::activate() {
    std::optional<WindowId> window = question();
    if (const auto windows = askableWindows(); !window && !windows.empty()) {
        window = windows.back();
    }
    const bool isActivated = window && sources_.windows.activate(*window);
    sources_.windows.flush();
    return isActivated;
}

} // namespace calmora
