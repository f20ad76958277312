// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/ApplicationList.h"

#include "platform/Clock.h"
#include "platform/linux/identity/ApplicationIdentifier.h"
#include "platform/linux/proc/ProcessMemory.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/proc/ProtectedProcesses.h"
#include "platform/linux/windows/WindowRoles.h"
#include "platform/linux/workspace/BusApplications.h"
#include "platform/linux/xdg/InstalledApplications.h"

#include <algorithm>
#include <utility>

namespace calmora {

namespace {

/// One refresh of the popover looks up several identifiers.
constexpr std::chrono::milliseconds installedLifetime{100};
/// No event tells of an icon in a tray, nor of an application that is installed. Most come with a
/// window that opens or closes, or with a process that starts.
constexpr std::chrono::seconds silentChangesInterval{6};
/// Verdicts grow old without an event.
constexpr std::chrono::seconds listLifetime{10};
/// Asking the guard costs more than the rest of an unchanged process. Launchers turn into other
/// programs soon, if ever: the time doubles with each verdict.
constexpr std::chrono::seconds firstVerdictLifetime{10};
constexpr std::chrono::seconds longestVerdictLifetime{80};

bool namesNothing(const Image& image) {
    return image.themeName.empty() && image.file.empty() && !image.pixels;
}

/// Windows of other processes in the window groups of `own`.
std::vector<TopLevelWindow> groupWindows(const std::vector<TopLevelWindow>& own,
                                         const std::vector<TopLevelWindow>& all) {
    std::set<WindowId> groups;
    for (const TopLevelWindow& window : own) {
        if (window.group != 0) {
            groups.insert(window.group);
        }
    }
    std::vector<TopLevelWindow> result;
    if (!groups.empty()) {
        std::ranges::copy_if(all, std::back_inserter(result), [&](const TopLevelWindow& window) {
            return groups.contains(window.group) && window.process != own.front().process;
        });
    }
    return result;
}

/// Absent also if only the background scan found the process and it now runs another program.
std::optional<ProcessDetails> detailsOf(ProcessId process, ActivationFacts facts,
                                        const WorkspaceSources& sources) {
    auto details = sources.reader.details(process);
    facts.isAgent = false;
    const bool isAgentAlone = activationPolicy(facts) == ActivationPolicy::prohibited;
    if (details && isAgentAlone && !identifyWindowless(*details, sources.installed.index())) {
        return std::nullopt;
    }
    return details;
}

} // namespace

ApplicationList::ApplicationList(WorkspaceSources sources)
    : sources_(std::move(sources)), background_(sources_.reader) {}

void ApplicationList::refreshInstalled() {
    const auto now = sources_.clock.ticks();
    if (checkedInstalled_ && now - *checkedInstalled_ < installedLifetime) {
        return;
    }
    checkedInstalled_ = now;
    if (sources_.installed.refresh()) {
        byProcess_.clear();
        hasForgotten_ = true;
        verdicts_.clear();
        background_.forget();
        // Otherwise an update without a scan would list no background applications.
        if (hasScanned_) {
            scanBackground();
        }
    }
}

void ApplicationList::scanBackground() {
    hasScanned_ = false; // refreshInstalled() need not scan if it finds a change.
    refreshInstalled();
    hasScanned_ = true;
    background_.scan(sources_.installed, sources_.windows.displayName());
    readTrayIcons();
}

bool ApplicationList::scanAgain() {
    const auto now = sources_.clock.ticks();
    bool isDue = background_.scan(sources_.installed, sources_.windows.displayName()) ||
                 sources_.windows.windows() != windows_ || now - updatedAt_ >= listLifetime;
    if (isDue || now - trayIconsReadAt_ >= silentChangesInterval) {
        const auto before = trayIcons_;
        refreshInstalled();
        readTrayIcons();
        isDue = isDue || hasForgotten_ || trayIcons_ != before;
    }
    return isDue;
}

void ApplicationList::readTrayIcons() {
    trayIconsReadAt_ = sources_.clock.ticks();
    trayIcons_.clear();
    for (const ProcessId process : sources_.windows.trayIconProcesses()) {
        if (const auto started = startTime(process)) {
            trayIcons_.emplace(process, *started);
        }
    }
}

ApplicationList::Candidates ApplicationList::candidates() {
    const auto roles = windowRoles(windows_);
    Candidates found;
    for (std::size_t i = 0; i < windows_.size(); ++i) {
        const TopLevelWindow& window = windows_[i];
        const auto process = window.listedProcess();
        if (!process) {
            continue;
        }
        Candidate& candidate = found[*process];
        ActivationFacts& facts = candidate.facts;
        facts.isShell = facts.isShell || roles[i].isShell;
        facts.hasRegularWindow = facts.hasRegularWindow || roles[i].isRegular;
        facts.hasHiddenWindow = facts.hasHiddenWindow || roles[i].isHidden;
        candidate.windows.push_back(window);
        std::vector<ProcessId> processes;
        std::ranges::set_union(candidate.processes, window.candidates,
                               std::back_inserter(processes));
        candidate.processes = std::move(processes);
    }
    for (const ProcessId process : sources_.bus.statusItemProcesses()) {
        found[process].facts.hasTrayIcon = true;
    }
    for (const auto& [process, started] : trayIcons_) {
        // The id may have been reused since the last scan.
        if (startTime(process) == started) {
            found[process].facts.hasTrayIcon = true;
        }
    }
    for (const auto& [process, startTime] : wereRegular_) {
        found[process].facts.wasRegular = true;
    }
    std::set<ProcessId> applications;
    for (const TopLevelWindow& window : windows_) {
        // Each has its row already, even if not under its own id.
        applications.insert(window.candidates.begin(), window.candidates.end());
    }
    std::erase_if(found, [&](const auto& entry) {
        return entry.second.windows.empty() && applications.contains(entry.first);
    });
    for (const auto& [process, candidate] : found) {
        if (activationPolicy(candidate.facts) != ActivationPolicy::prohibited) {
            applications.insert(process);
        }
    }
    for (const ProcessId process : background_.agents(applications)) {
        found[process].facts.isAgent = true;
    }
    return found;
}

ApplicationList::Candidates ApplicationList::read() {
    refreshInstalled();
    // A copy, because calls below may update the window system's list.
    const auto before = std::exchange(windows_, sources_.windows.windows());
    dropOldVerdicts(before != windows_);
    return candidates();
}

std::shared_ptr<const ListedApplication> ApplicationList::look(ProcessId process) {
    Candidates found = read();
    const auto candidate = found.find(process);
    auto application = candidate == found.end() ? nullptr : listed(process, candidate->second);
    if (application) {
        byProcess_.insert_or_assign(process, application);
        if (application->policy == ActivationPolicy::regular) {
            wereRegular_.insert_or_assign(process, application->process.startTime);
        }
    }
    return application;
}

const ApplicationList::Applications& ApplicationList::update() {
    updatedAt_ = sources_.clock.ticks();
    hasForgotten_ = false;
    Candidates found = read();
    std::map<ProcessId, std::shared_ptr<const ListedApplication>> current;
    std::map<ProcessId, std::uint64_t> regular;
    for (auto& [process, candidate] : found) {
        if (auto application = listed(process, candidate)) {
            if (application->policy == ActivationPolicy::regular || candidate.facts.wasRegular) {
                regular.emplace(process, application->process.startTime);
            }
            current.emplace(process, std::move(application));
        }
    }
    wereRegular_ = std::move(regular);
    std::erase_if(verdicts_, [&](const auto& verdict) {
        return !found.contains(verdict.first) && !isOneOfSeveralOwners(windows_, verdict.first);
    });
    byProcess_ = std::move(current);
    applications_.clear();
    for (const auto& [process, application] : byProcess_) {
        applications_.push_back(application);
    }
    std::ranges::stable_sort(
        applications_, {}, [](const auto& application) { return application->process.startTime; });
    return applications_;
}

std::optional<std::uint64_t> ApplicationList::startTime(ProcessId process) const {
    // Checking a listed process's descriptor costs a tenth of reading.
    const auto known = byProcess_.find(process);
    if (known != byProcess_.end() && sources_.memory.descriptor(process) &&
        sources_.memory.startTime(process) == known->second->process.startTime &&
        !sources_.memory.isGone(process)) {
        return known->second->process.startTime;
    }
    return sources_.reader.startTime(process);
}

bool ApplicationList::isProtected(ProcessId process, std::uint64_t startTime,
                                  bool hasRegularWindow) {
    Verdict& verdict = verdicts_[process];
    const auto now = sources_.clock.ticks();
    const bool isKnown =
        verdict.startTime == startTime && verdict.hasRegularWindow == hasRegularWindow;
    if (!isKnown || now - verdict.askedAt >= verdict.lifetime) {
        const auto lifetime =
            isKnown ? std::min(2 * verdict.lifetime, longestVerdictLifetime) : firstVerdictLifetime;
        verdict = {startTime, hasRegularWindow, sources_.protection.isProtected(process), now,
                   lifetime};
    }
    return verdict.isProtected;
}

bool ApplicationList::isAnyProtected(ProcessId process, std::uint64_t startTime,
                                     const Candidate& candidate) {
    return isProtected(process, startTime, candidate.facts.hasRegularWindow) ||
           std::ranges::any_of(candidate.processes, [&](ProcessId other) {
               const auto started = sources_.reader.startTime(other);
               return other != process && started &&
                      isProtected(other, *started, candidate.facts.hasRegularWindow);
           });
}

/// Session programs may take their bus names and display roles after they were first seen.
void ApplicationList::dropOldVerdicts(bool windowsChanged) {
    const auto busOwners = std::exchange(busOwners_, sources_.bus.protectedProcesses());
    const auto display = windowsChanged
                             ? std::exchange(displayProcesses_, sources_.windows.displayProcesses())
                             : displayProcesses_;
    if (busOwners != busOwners_ || display != displayProcesses_) {
        verdicts_.clear();
    }
}

std::shared_ptr<const ListedApplication> ApplicationList::listed(ProcessId process,
                                                                 Candidate& candidate) {
    if (activationPolicy(candidate.facts) == ActivationPolicy::prohibited) {
        return nullptr;
    }
    const auto started = startTime(process);
    if (!started) {
        return nullptr;
    }
    if (const auto was = wereRegular_.find(process);
        was != wereRegular_.end() && was->second != *started) {
        // The id was reused.
        wereRegular_.erase(was);
        candidate.facts.wasRegular = false;
    }
    candidate.facts.isProtected = isAnyProtected(process, *started, candidate);
    const ActivationPolicy policy = activationPolicy(candidate.facts);
    if (policy == ActivationPolicy::prohibited) {
        return nullptr;
    }
    const auto known = byProcess_.find(process);
    const bool isKnown = known != byProcess_.end() && known->second->process.startTime == *started;
    if (isKnown && known->second->policy == policy && known->second->windows == candidate.windows &&
        known->second->icon) {
        return known->second;
    }
    auto application = std::make_shared<ListedApplication>();
    application->policy = policy;
    application->windows = std::move(candidate.windows);
    application->candidates = std::move(candidate.processes);
    if (isKnown &&
        (application->windows.empty() || application->windows == known->second->windows)) {
        // Keep the identity found with windows after they are gone.
        application->process = known->second->process;
        application->identity = known->second->identity;
        application->icon = known->second->icon;
    } else {
        auto details = detailsOf(process, candidate.facts, sources_);
        if (!details) {
            return nullptr;
        }
        ApplicationFacts facts;
        facts.process = *std::move(details);
        facts.parent = sources_.reader.details(facts.process.parent);
        facts.windows = application->windows;
        facts.groupWindows = groupWindows(facts.windows, windows_);
        application->identity = identify(facts, sources_.installed.index());
        application->process = std::move(facts.process);
    }
    if (!application->icon) {
        application->icon = iconOf(application->identity, application->windows);
    }
    const bool mayHide = candidate.facts.hasTrayIcon || sources_.bus.isMediaPlayer(process);
    for (const TopLevelWindow& window : application->windows) {
        if ((mayHide || window.isStandIn) && !window.gtkBusName.empty()) {
            sources_.bus.learnActions({window.gtkBusName, window.gtkObjectPath});
        }
    }
    return application;
}

std::optional<Image> ApplicationList::iconOf(const ApplicationIdentity& identity,
                                             const std::vector<TopLevelWindow>& windows) {
    if (!namesNothing(identity.icon)) {
        Image image = identity.icon;
        // Some entries name an icon of another desktop's theme.
        image.fallbackThemeName = identity.desktopId.value_or("");
        return image;
    }
    for (const TopLevelWindow& window : windows) {
        if (auto pixels = sources_.windows.icon(window.id)) {
            Image image;
            image.pixels = std::move(pixels);
            return image;
        }
    }
    return {};
}

} // namespace calmora
