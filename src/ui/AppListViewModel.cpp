// SPDX-License-Identifier: MIT
#include "ui/AppListViewModel.h"

#include "autoquit/catalogue/KnownApps.h"
#include "autoquit/catalogue/LinuxAnnex.h"
#include "model/QuitTogether.h"
#include "platform/RunLoop.h"
#include "platform/Text.h"
#include "platform/Workspace.h"
#include "settings/AppSettings.h"
#include "settings/NeverQuitList.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>

namespace calmora {
namespace {

/// Copies of the chosen entries, in an order that keeps equal ones as they stand. The list comes
/// sorted by name, so the usual case is only checked.
template <typename Precedes>
std::vector<AppInfo> sortedCopy(std::vector<const AppInfo*> chosen, Precedes precedes) {
    const auto before = [&](const AppInfo* a, const AppInfo* b) { return precedes(*a, *b); };
    if (!std::ranges::is_sorted(chosen, before)) {
        std::ranges::stable_sort(chosen, before);
    }
    std::vector<AppInfo> result;
    result.reserve(chosen.size());
    for (const AppInfo* app : chosen) {
        result.push_back(*app);
    }
    return result;
}

} // namespace

AppListViewModel::AppListViewModel(AppSettings& settings, Platform platform, QuitTogether* together)
    : settings_(settings), platform_(platform), together_(together), processMonitor_(platform),
      appQuitter_(platform), resourceMonitor_(platform), soundPlayer_(platform) {
    if (together_) {
        quitChanges_ = together_->onChanged([this] {
            markQuitStates();
            written({{Property::apps}, {Property::backgroundApps}});
        });
        quitEnds_ =
            together_->onGone([this](const std::vector<AppInfo>& gone) { removeMeanwhile(gone); });
        quitFinishes_ = together_->onFinished([this](const std::vector<AppInfo>& ended) {
            if (!ended.empty() && settings_.playSounds()) {
                soundPlayer_.playQuitSound();
            }
            if (pollingTimer_) {
                refresh(); // What was kept in the list may have stayed without a window.
            }
        });
    }
}

Subscription AppListViewModel::observe(std::function<void(const AppListChange&)> handler) {
    return changed_.connect(std::move(handler));
}

Subscription AppListViewModel::onQuit(std::function<void(const std::vector<AppInfo>&)> handler) {
    return quit_.connect(std::move(handler));
}

void AppListViewModel::setSearchText(std::string text) {
    if (text != searchText_) {
        searchText_ = std::move(text);
        written({{Property::searchText}});
    }
}

EntryCount AppListViewModel::selected(bool force) const {
    return countApps(
        [force](const AppInfo& app) { return app.isSelected && (app.canBeForced || !force); });
}

SelectAllClick AppListViewModel::selectAllClick() const {
    const EntryCount missing = countApps(
        [this](const AppInfo& app) { return !app.isSelected && !isSparedBySelectAll(app); });
    if (missing.all == 0) {
        return {false, selected(false)};
    }
    return {true, countApps([this](const AppInfo& app) { return !isSparedBySelectAll(app); })};
}

std::vector<AppInfo> AppListViewModel::filteredApps() const {
    std::vector<const AppInfo*> chosen;
    chosen.reserve(apps_.size());
    for (const AppInfo& app : apps_) {
        if (matchesSearch(app.name)) {
            chosen.push_back(&app);
        }
    }
    switch (settings_.sortOrder()) {
    case SortOrder::cpuUsage:
        return sortedCopy(std::move(chosen), [](const AppInfo& a, const AppInfo& b) {
            return a.cpuUsage.value_or(0) > b.cpuUsage.value_or(0);
        });
    case SortOrder::memoryUsage:
        return sortedCopy(std::move(chosen), [](const AppInfo& a, const AppInfo& b) {
            return a.memoryMB.value_or(0) > b.memoryMB.value_or(0);
        });
    case SortOrder::alphabetical:
        break;
    }
    return sortedCopy(std::move(chosen),
                      [this](const AppInfo& a, const AppInfo& b) { return precedesByName(a, b); });
}

std::vector<AppInfo> AppListViewModel::filteredBackgroundApps() const {
    if (!settings_.viewBackgroundApps()) {
        return {};
    }
    std::vector<const AppInfo*> chosen;
    for (const AppInfo& app : backgroundApps_) {
        const auto memberMatches = [this](const AppInfo& member) {
            return matchesSearch(member.name);
        };
        if (matchesSearch(app.name) ||
            (app.childProcesses && std::ranges::any_of(*app.childProcesses, memberMatches))) {
            chosen.push_back(&app);
        }
    }
    return sortedCopy(std::move(chosen),
                      [this](const AppInfo& a, const AppInfo& b) { return precedesByName(a, b); });
}

void AppListViewModel::refresh() {
    // Who is told may destroy the model.
    const std::weak_ptr alive = alive_;
    if (together_) {
        together_->check(); // What has ended leaves as such.
    }
    if (alive.expired()) {
        return;
    }
    const ApplicationSnapshot running = platform_.workspace.runningApplications();
    std::vector<AppInfo> listed =
        processMonitor_.getRunningApps(running, settings_.includeFinderWindows());
    std::vector<AppInfo> keptRows;
    if (together_) {
        together_->lookAgain(running);
        if (alive.expired()) {
            return;
        }
        keptRows = keepQuitting(listed);
    }

    std::unordered_map<ProcessId, const AppInfo*> known;
    known.reserve(apps_.size());
    for (const AppInfo& app : apps_) {
        for (const ProcessId process : app.processes()) {
            known.emplace(process, &app);
        }
    }
    for (AppInfo& app : listed) {
        bool isKnown = false;
        // Rows join and part as candidates come and go; no tick may appear by that.
        for (const ProcessId process : app.processes()) {
            if (const auto before = known.find(process); before != known.end()) {
                isKnown = true;
                app.isSelected = app.isSelected && before->second->isSelected;
                app.cpuUsage = before->second->cpuUsage;
                app.memoryMB = before->second->memoryMB;
            }
        }
        if (!isKnown && (settings_.deselectAppsByDefault() || !app.isActivityKnown)) {
            app.isSelected = false;
        }
        app.knownAppInfo = KnownApps::lookup(app.bundleIdentifier);
    }
    apps_ = std::move(listed);
    const std::size_t marks = markProtected();

    backgroundApps_ = backgroundOf(running, keptRows);
    markQuitStates();

    retainSnapshots();
    written({{Property::apps, 1 + marks}, {Property::backgroundApps}});
}

void AppListViewModel::retainSnapshots() {
    ResourceMonitor::Snapshots kept;
    for (const std::vector<AppInfo>* list : {&apps_, &backgroundApps_}) {
        for (const AppInfo& app : *list) {
            for (const ProcessId process : app.processes()) {
                const auto snapshot = resourceMonitor_.snapshots().find(process);
                if (snapshot != resourceMonitor_.snapshots().end()) {
                    kept.insert(*snapshot);
                }
            }
        }
    }
    resourceMonitor_.setSnapshots(std::move(kept));
}

std::vector<AppInfo> AppListViewModel::backgroundOf(const ApplicationSnapshot& running,
                                                    const std::vector<AppInfo>& without) const {
    std::vector<AppInfo> background = processMonitor_.getBackgroundApps(running);
    for (const AppInfo& app : without) {
        std::erase_if(background, [&](const AppInfo& other) { return other.pid == app.pid; });
    }
    return settings_.groupBackgroundInstances()
               ? processMonitor_.groupBackgroundApps(std::move(background))
               : background;
}

void AppListViewModel::updateResourceUsage() {
    if (together_ && together_->hasReasons()) {
        const std::weak_ptr alive = alive_;
        together_->lookAgain(platform_.workspace.runningApplications());
        if (alive.expired()) {
            return;
        }
    }
    written({{Property::apps, sampleUsage()}});
}

std::size_t AppListViewModel::sampleUsage() {
    std::vector<ProcessId> pids;
    pids.reserve(apps_.size());
    for (const AppInfo& app : apps_) {
        const auto processes = app.processes();
        pids.insert(pids.end(), processes.begin(), processes.end());
    }
    const ResourceMonitor::Usages usages = resourceMonitor_.getUsage(pids);
    std::size_t writes = 0;
    for (AppInfo& app : apps_) {
        std::optional<ResourceUsage> sum;
        for (const ProcessId process : app.processes()) {
            if (const auto usage = usages.find(process); usage != usages.end()) {
                sum = sum.value_or(ResourceUsage());
                sum->cpuPercent += usage->second.cpuPercent;
                sum->memoryMB += usage->second.memoryMB;
            }
        }
        if (sum) {
            app.cpuUsage = sum->cpuPercent;
            app.memoryMB = sum->memoryMB;
            writes += 2;
        }
    }
    return writes;
}

void AppListViewModel::startPolling(std::chrono::milliseconds interval) {
    const std::size_t stopped = pollingTimer_ ? 1 : 0;
    const std::size_t figures = sampleUsage();
    pollingTimer_ = platform_.runLoop.repeat(interval, [this] { updateResourceUsage(); });
    written(
        {{Property::pollingTimer, stopped}, {Property::apps, figures}, {Property::pollingTimer}});
}

void AppListViewModel::stopPolling() {
    if (pollingTimer_) {
        pollingTimer_.reset();
        resourceMonitor_.rest();
        written({{Property::pollingTimer}});
    }
}

void AppListViewModel::applyWhitelist() {
    written({{Property::apps, markProtected()}});
}

std::size_t AppListViewModel::markProtected() {
    const NeverQuitList neverQuit(settings_, platform_.workspace);
    std::size_t writes = 0;
    for (AppInfo& app : apps_) {
        const std::optional<std::string>& identifier = app.bundleIdentifier;
        if (isMusicUnticked(app)) {
            app.isSelected = false;
            ++writes;
        }
        app.isWhitelisted =
            identifier && neverQuit.contains(*identifier, app.otherBundleIdentifiers);
        ++writes;
        if (app.isWhitelisted) {
            app.isSelected = false;
            ++writes;
        }
    }
    return writes;
}

void AppListViewModel::toggleSelection(ProcessId pid) {
    AppInfo* app = find(pid);
    if (app && !app->isWhitelisted) {
        app->isSelected = !app->isSelected;
        written({{Property::apps}});
    }
}

void AppListViewModel::setAllSelected(bool isSelected) {
    for (AppInfo& app : apps_) {
        app.isSelected = isSelected;
    }
    const std::size_t marks = isSelected ? markProtected() : 0;
    written({{Property::apps, apps_.size() + marks}});
}

void AppListViewModel::toggleWhitelist(ProcessId pid) {
    const AppInfo* app = find(pid);
    if (!app || !app->bundleIdentifier) {
        return;
    }
    // Observers of the settings may destroy the model.
    const std::weak_ptr alive = alive_;
    AppSettings& settings = settings_;
    if (app->isWhitelisted) {
        std::vector<std::string> identifiers = app->otherBundleIdentifiers;
        identifiers.push_back(*app->bundleIdentifier);
        const NeverQuitList neverQuit(settings_, platform_.workspace);
        std::set<std::string> stored;
        for (const std::string& identifier : identifiers) {
            std::ranges::copy(neverQuit.storedFor(identifier), std::inserter(stored, stored.end()));
        }
        for (const std::string& identifier : stored) {
            settings.removeFromNeverQuit(identifier);
        }
    } else {
        settings.addToNeverQuit(std::string(*app->bundleIdentifier));
    }
    if (!alive.expired()) {
        applyWhitelist();
    }
}

bool AppListViewModel::quitApp(ProcessId pid, bool force) {
    if (!appQuitter_.quitApp(pid, force)) {
        return false;
    }
    removeQuit({pid});
    return true;
}

std::vector<AppInfo> AppListViewModel::ticked() const {
    std::vector<AppInfo> ticked;
    std::ranges::copy_if(apps_, std::back_inserter(ticked), &AppInfo::isSelected);
    return ticked;
}

std::size_t AppListViewModel::quitSelected(bool force) {
    const std::set<ProcessId> gone = appQuitter_.quitApps(ticked(), force);
    if (!gone.empty()) {
        removeQuit({gone.begin(), gone.end()});
    }
    return gone.size();
}

void AppListViewModel::beginQuit(ProcessId pid, bool force) {
    if (const auto app = findAnywhere(pid)) {
        together_->begin({*app}, force);
    }
}

void AppListViewModel::beginQuitSelected(bool force) {
    std::vector<AppInfo> apps = ticked();
    std::erase_if(apps, [force](const AppInfo& app) { return force && !app.canBeForced; });
    together_->begin(apps, force);
}

bool AppListViewModel::show(ProcessId pid) {
    const auto app = platform_.workspace.runningApplication(pid);
    return app && app->activate();
}

std::optional<AppInfo> AppListViewModel::findAnywhere(ProcessId pid) const {
    std::optional<AppInfo> result;
    const auto look = [&](const AppInfo& app) {
        if (app.pid == pid && !app.childProcesses) {
            result = app;
        }
    };
    std::ranges::for_each(apps_, look);
    for (const AppInfo& app : backgroundApps_) {
        look(app);
        std::ranges::for_each(app.childProcesses.value_or(std::vector<AppInfo>{}), look);
    }
    return result;
}

std::vector<AppInfo> AppListViewModel::keepQuitting(std::vector<AppInfo>& listed) const {
    std::vector<AppInfo> kept;
    for (const AppInfo& before : apps_) {
        const bool isListed = std::ranges::find(listed, before.pid, &AppInfo::pid) != listed.end();
        if (!isListed && together_->state(before.pid) == QuitState::quitting) {
            const auto next = std::ranges::find_if(
                listed, [&](const AppInfo& app) { return precedesByName(before, app); });
            listed.insert(next, before);
            kept.push_back(before);
        }
    }
    return kept;
}

void AppListViewModel::markQuitStates() {
    if (!together_) {
        return;
    }
    const auto mark = [this](AppInfo& app) { app.quitState = together_->state(app.pid); };
    std::ranges::for_each(apps_, mark);
    for (AppInfo& app : backgroundApps_) {
        if (app.childProcesses) {
            std::ranges::for_each(*app.childProcesses, mark);
        } else {
            mark(app);
        }
    }
}

void AppListViewModel::removeMeanwhile(const std::vector<AppInfo>& gone) {
    std::erase_if(apps_, [&](const AppInfo& app) {
        return std::ranges::find(gone, app.pid, &AppInfo::pid) != gone.end();
    });
    changed_.emit({Property::apps, AppListChange::Reason::removedMeanwhile});
}

void AppListViewModel::written(std::initializer_list<Writes> all) {
    const std::weak_ptr alive = alive_;
    for (const auto& [property, times] : all) {
        for (std::size_t i = 0; i < times && !alive.expired(); ++i) {
            changed_.emit({.property = property});
        }
    }
}

AppInfo* AppListViewModel::find(ProcessId pid) {
    const auto found = std::ranges::find(apps_, pid, &AppInfo::pid);
    return found != apps_.end() ? &*found : nullptr;
}

bool AppListViewModel::matchesSearch(std::string_view name) const {
    return searchText_.empty() || platform_.text.contains(name, searchText_);
}

bool AppListViewModel::isMusicUnticked(const AppInfo& app) const {
    return settings_.neverQuitMusicApps() && app.bundleIdentifier &&
           isMusicPlayer(*app.bundleIdentifier);
}

bool AppListViewModel::isSparedBySelectAll(const AppInfo& app) const {
    return app.isWhitelisted || isMusicUnticked(app);
}

EntryCount AppListViewModel::countApps(const std::function<bool(const AppInfo&)>& counts) const {
    EntryCount count;
    for (const AppInfo& app : apps_) {
        if (counts(app)) {
            ++count.all;
            count.hidden += matchesSearch(app.name) ? 0 : 1;
        }
    }
    return count;
}

bool AppListViewModel::precedesByName(const AppInfo& a, const AppInfo& b) const {
    return platform_.text.compare(a.name, b.name) < 0;
}

std::vector<AppInfo>
AppListViewModel::recordsOf(const std::unordered_set<ProcessId>& processes) const {
    std::vector<AppInfo> records;
    const auto add = [&](const AppInfo& app) {
        if (processes.contains(app.pid) && !app.childProcesses) {
            records.push_back(app);
        }
    };
    std::ranges::for_each(apps_, add);
    for (const AppInfo& app : backgroundApps_) {
        add(app);
        if (app.childProcesses) {
            std::ranges::for_each(*app.childProcesses, add);
        }
    }
    return records;
}

void AppListViewModel::removeQuit(const std::unordered_set<ProcessId>& gone) {
    if (settings_.playSounds()) {
        soundPlayer_.playQuitSound();
    }
    if (quit_.hasListeners()) {
        quit_.emit(recordsOf(gone));
    }
    std::erase_if(apps_, [&](const AppInfo& app) { return gone.contains(app.pid); });
    changed_.emit({Property::apps, AppListChange::Reason::removedAfterQuit});
}

} // namespace calmora
