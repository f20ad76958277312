// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/LinuxWorkspace.h"

#include "platform/linux/EventPoll.h"
#include "platform/linux/identity/ApplicationIdentifier.h"
#include "platform/linux/identity/BundlePath.h"
#include "platform/linux/identity/KnownIds.h"
#include "platform/linux/proc/PidFd.h"
#include "platform/linux/proc/ProcessMemory.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/windows/WindowRoles.h"
#include "platform/linux/workspace/BusApplications.h"
#include "platform/linux/xdg/InstalledApplications.h"
#include "support/ShownName.h"

#include <algorithm>
#include <chrono>
#include <span>
#include <utility>

namespace calmora {

namespace {

constexpr std::chrono::seconds scanInterval{2};
/// Further ends are noticed when their windows close.
constexpr std::size_t mostEndWatches = 256;
constexpr std::string_view fileManagerIdentifier = "com.apple.finder";

/// `windows` are all of the same list.
WorkspaceApplication valueOf(const ListedApplication& application,
                             std::span<const TopLevelWindow> windows) {
    WorkspaceApplication value;
    value.processIdentifier = application.process.pid;
    value.bundleIdentifier = application.identity.bundleIdentifier;
    value.localizedName = shownName(application.identity.localizedName);
    if (value.localizedName->empty()) { // A row needs something to see.
        value.localizedName = shownName(application.identity.bundleIdentifier);
    }
    value.icon = application.icon;
    value.activationPolicy = application.policy;
    value.otherIdentifiers = application.identity.otherIdentifiers;
    value.candidates = application.candidates;
    value.mustAnswerSoon =
        std::ranges::any_of(application.windows, &TopLevelWindow::mustAnswerSoon);
    value.canBeForced = !isOneOfSeveralOwners(windows, application.process.pid);
    value.isActivityKnown = application.windows.empty() ||
                            !std::ranges::all_of(application.windows, &TopLevelWindow::isStandIn);
    const bool hasEntry = !application.identity.entryPath.empty();
    if (hasEntry &&
        (application.identity.isVisible || application.policy == ActivationPolicy::regular)) {
        value.desktopId = application.identity.desktopId;
    }
    value.startTime = application.process.startTime;
    return value;
}

/// Some applications can be identified only after their first window opened.
bool isKnownAs(const ListedApplication& before, const ListedApplication& now) {
    return before.identity.bundleIdentifier == now.identity.bundleIdentifier &&
           before.identity.localizedName == now.identity.localizedName;
}

/// The same process in another list; null if missing.
std::shared_ptr<const ListedApplication> counterpart(const ListedApplication& application,
                                                     const ApplicationList::Applications& list) {
    const auto found = std::ranges::find_if(
        list, [&](const auto& other) { return other->isSameProcess(application); });
    return found == list.end() ? nullptr : *found;
}

} // namespace

LinuxWorkspace::LinuxWorkspace(WorkspaceSources sources)
    : sources_(sources), list_(std::move(sources)), launched_([this](bool) { listenersChanged(); }),
      terminated_([this](bool) { listenersChanged(); }),
      activated_([this](bool) { listenersChanged(); }) {}

LinuxWorkspace::~LinuxWorkspace() = default;

ApplicationSnapshot LinuxWorkspace::runningApplications() {
    const Subscription following = followWindows();
    if (!isListening()) {
        list_.scanBackground();
    }
    ApplicationSnapshot result;
    for (const Application& application : current()) {
        // Bind the id to this process for later quit requests.
        sources_.memory.hold(application->process.pid);
        result.push_back(valueOf(*application, list_.windows()));
    }
    return result;
}

/// Updates and returns the list.
const ApplicationList::Applications& LinuxWorkspace::updated() {
    list_.update();
    tellSoon();
    return list_.applications();
}

/// Returns the list, updated unless events keep it and none is pending.
const ApplicationList::Applications& LinuxWorkspace::current() {
    const bool isKept = isListening() && !telling_ && sources_.windows.windows() == list_.windows();
    return isKept ? list_.applications() : updated();
}

LinuxWorkspace::Application LinuxWorkspace::activeApplication() {
    list_.refreshInstalled(); // Owners of windows may be found by what is installed.
    const auto active = sources_.windows.activeWindow();
    if (!active) {
        return nullptr;
    }
    const std::vector<TopLevelWindow>& windows = sources_.windows.windows();
    const WindowId top = topmostParent(windows, *active);
    const auto window = std::ranges::find(windows, top, &TopLevelWindow::id);
    const auto owner = window == windows.end() ? std::nullopt : window->listedProcess();
    if (!owner) {
        return nullptr;
    }
    if (!isListening()) {
        return list_.look(*owner);
    }
    const auto& applications = current();
    const auto found = std::ranges::find_if(applications, [&](const Application& application) {
        return application->process.pid == *owner;
    });
    return found == applications.end() ? nullptr : *found;
}

std::optional<WorkspaceApplication> LinuxWorkspace::frontmostApplication() {
    const Application application = activeApplication();
    return application ? std::optional(valueOf(*application, list_.windows())) : std::nullopt;
}

std::unique_ptr<RunningApplication> LinuxWorkspace::runningApplication(ProcessId process) {
    for (const Application& application : updated()) {
        if (application->process.pid == process) {
            return bound(application);
        }
    }
    return nullptr;
}

std::vector<std::unique_ptr<RunningApplication>>
LinuxWorkspace::runningApplicationsWithBundleIdentifier(const std::string& bundleIdentifier) {
    std::vector<std::unique_ptr<RunningApplication>> result;
    for (const Application& application : updated()) {
        if (application->identity.instanceIdentifier() == bundleIdentifier) {
            if (auto running = bound(application)) {
                result.push_back(std::move(running));
            }
        }
    }
    return result;
}

std::unique_ptr<RunningApplication> LinuxWorkspace::bound(const Application& application) {
    const ProcessId process = application->process.pid;
    if (!sources_.memory.startTime(process)) {
        sources_.memory.hold(process);
    }
    if (sources_.memory.startTime(process) != application->process.startTime ||
        sources_.memory.isGone(process)) {
        return nullptr;
    }
    std::vector<std::string> others;
    for (const Application& other : list_.applications()) {
        if (other->identity.instanceIdentifier() != application->identity.instanceIdentifier() &&
            other->process.executable) {
            others.push_back(*other->process.executable);
        }
    }
    return std::make_unique<LinuxRunningApplication>(
        sources_, requests_, application,
        bundlePath(application->process, application->identity, sources_.home, others));
}

bool LinuxWorkspace::belongsToAnotherProgram(const std::string& bundlePath,
                                             const std::string& executable) const {
    return calmora::belongsToAnotherProgram(bundlePath, executable);
}

std::string LinuxWorkspace::canonicalIdentifier(const std::string& identifier) const {
    list_.refreshInstalled();
    return bundleIdentifierOf(identifier, sources_.installed.index());
}

std::optional<InstalledApplication>
LinuxWorkspace::installedApplication(const std::string& bundleIdentifier) const {
    list_.refreshInstalled();
    const DesktopEntryIndex& index = sources_.installed.index();
    const DesktopEntry* entry = index.withId(
        bundleIdentifier == fileManagerIdentifier ? index.fileManager() : bundleIdentifier);
    for (const KnownId& known : knownIds()) {
        if (entry != nullptr) {
            break;
        }
        if (known.wellKnown == bundleIdentifier) {
            entry = index.withId(known.desktopId);
        }
    }
    if (entry == nullptr) {
        return {};
    }
    InstalledApplication application{
        entry->name, {}, entry->path, entry->categories, entry->needsTerminal};
    if (!entry->icon.empty()) {
        application.icon = iconImage(entry->icon);
    }
    return application;
}

void LinuxWorkspace::listenersChanged() {
    if (isListening() && !windowsChanged_) {
        windowsChanged_ = sources_.windows.onWindowsChanged([this] { changed(); });
        // The bus notifies even while an alert is open; event poll callbacks wait for its end.
        busChanged_ = sources_.bus.onChanged([this] {
            if (!telling_) {
                telling_ = sources_.events.later([this] { changed(); });
            }
        });
        scanning_ = sources_.events.every(scanInterval, [this] {
            if (list_.scanAgain()) {
                changed();
            }
        });
        // Running applications are not reported.
        list_.scanBackground();
        told_ = list_.update();
        watchEnds();
    } else if (!isListening()) {
        windowsChanged_.reset();
        busChanged_.reset();
        scanning_.reset();
        telling_.reset();
        ends_.clear();
        told_.clear();
    }
    if (activated_.hasListeners() && !activeChanged_) {
        activeChanged_ = sources_.windows.onActiveWindowChanged([this] { activeChanged(); });
        lastActive_ = activeApplication();
    } else if (!activated_.hasListeners()) {
        activeChanged_.reset();
        unknownWindow_.reset();
        lastActive_.reset();
    }
}

void LinuxWorkspace::watchEnds() {
    std::map<ProcessId, EndWatch> watches;
    for (const Application& application : told_) {
        const ProcessId process = application->process.pid;
        if (watches.size() >= mostEndWatches) {
            break;
        }
        const auto known = ends_.find(process);
        if (known != ends_.end() && !known->second.process->hasExited()) {
            watches.insert(ends_.extract(known));
            continue;
        }
        EndWatch watch;
        watch.process = sources_.memory.startTime(process) == application->process.startTime
                            ? sources_.memory.descriptor(process)
                            : nullptr;
        if (!watch.process) {
            if (auto opened = PidFd::open(process)) {
                watch.process = std::make_shared<const PidFd>(*std::move(opened));
            }
        }
        if (watch.process) {
            watch.subscription =
                sources_.events.watch(watch.process->descriptor(), [this, process] {
                    // It stays readable, so stop watching.
                    ends_.erase(process);
                    changed();
                });
            watches.emplace(process, std::move(watch));
        }
    }
    ends_ = std::move(watches);
}

void LinuxWorkspace::changed() {
    telling_.reset();
    if (!isListening()) {
        return;
    }
    const ApplicationList::Applications before = std::exchange(told_, list_.update());
    const ApplicationList::Applications after = told_;
    watchEnds();
    for (const Application& application : before) {
        const Application now = counterpart(*application, after);
        const bool wasRegular = application->policy == ActivationPolicy::regular;
        if (!now || (wasRegular && now->policy != ActivationPolicy::regular)) {
            terminated_.emit(valueOf(*application, list_.windows()));
        }
    }
    for (const Application& application : after) {
        const Application was = counterpart(*application, before);
        const bool isRegular = application->policy == ActivationPolicy::regular;
        if (!was || (isRegular && was->policy != ActivationPolicy::regular) ||
            !isKnownAs(*was, *application)) {
            launched_.emit(valueOf(*application, list_.windows()));
        }
    }
}

void LinuxWorkspace::tellSoon() {
    if (!isListening() || telling_) {
        return;
    }
    const auto& current = list_.applications();
    const bool isSame =
        current.size() == told_.size() &&
        std::ranges::equal(current, told_, [](const Application& a, const Application& b) {
            return a->isSameProcess(*b) && a->policy == b->policy && isKnownAs(*a, *b);
        });
    if (!isSame) {
        telling_ = sources_.events.later([this] { changed(); });
    }
}

void LinuxWorkspace::activeChanged() {
    const Subscription following = followWindows();
    const auto active = sources_.windows.activeWindow();
    const std::vector<TopLevelWindow>& windows = sources_.windows.windows();
    const bool isListed =
        !active || std::ranges::find(windows, *active, &TopLevelWindow::id) != windows.end();
    if (!isListed) {
        // Some managers report the active window before they list it.
        if (!unknownWindow_) {
            unknownWindow_ = sources_.windows.onWindowsChanged([this] { activeChanged(); });
        }
        return;
    }
    unknownWindow_.reset();
    const Application application = activeApplication();
    // Having no application, or the desktop, in between is no activation.
    if (application && !(lastActive_ && lastActive_->isSameProcess(*application))) {
        lastActive_ = application;
        activated_.emit(valueOf(*application, list_.windows()));
    }
}

} // namespace calmora
