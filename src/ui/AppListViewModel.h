// SPDX-License-Identifier: MIT
#pragma once

#include "model/AppInfo.h"
#include "model/AppQuitter.h"
#include "model/ProcessMonitor.h"
#include "model/ResourceMonitor.h"
#include "model/SoundPlayer.h"
#include "platform/Platform.h"
#include "platform/ProcessId.h"
#include "platform/Workspace.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace calmora {

class AppSettings;
class QuitTogether;

/// One write of an observable property of AppListViewModel.
struct AppListChange {
    enum class Property { apps, backgroundApps, searchText, pollingTimer };

    /// Why it was written, for a view that animates.
    enum class Reason {
        ordinary,
        /// Entries left because they were quit: see AppListViewModel::removalAnimation.
        removedAfterQuit,
        /// The same while the run loop runs, so that the user may be about to click.
        removedMeanwhile,
    };

    Property property = Property::apps;
    Reason reason = Reason::ordinary;

    friend bool operator==(const AppListChange&, const AppListChange&) = default;
};

/// A number of entries of AppListViewModel::apps(), and how many of them the search hides.
struct EntryCount {
    std::size_t all = 0;
    std::size_t hidden = 0;

    friend bool operator==(const EntryCount&, const EntryCount&) = default;
};

/// What a click on the select-all box does.
struct SelectAllClick {
    /// What it passes to AppListViewModel::setAllSelected().
    bool isSelected = true;
    /// The entries that end up ticked, or that lose their tick.
    EntryCount entries = {};

    friend bool operator==(const SelectAllClick&, const SelectAllClick&) = default;
};

/// The model behind the popover: the running applications with their ticks, figures and
/// protection, searched and sorted, and what the user does with them. A short-lived instance
/// serves a quit shortcut. Main thread.
class AppListViewModel {
  public:
    /// How long the removal of quit entries is animated, easing in and out.
    static constexpr std::chrono::milliseconds removalAnimation{250};

    /// An empty list. The arguments must outlive the model; the tools that act on the machine are
    /// the model's own, but for `together`, which beginQuit() needs.
    AppListViewModel(AppSettings& settings, Platform platform, QuitTogether* together = nullptr);

    /// Calls `handler` after each write of an observable property until the token ends: every
    /// field of an entry of apps() is a write of its own, so a view marks itself dirty and
    /// rebuilds later.
    [[nodiscard]] Subscription observe(std::function<void(const AppListChange&)> handler);

    /// Calls `handler` with what each quit has ended, before it leaves apps(), until the token
    /// ends.
    [[nodiscard]] Subscription onQuit(std::function<void(const std::vector<AppInfo>&)> handler);

    /// The regular applications in the process monitor's order; process ids are unique.
    [[nodiscard]] const std::vector<AppInfo>& apps() const { return apps_; }

    /// The background applications, or their groups, in the process monitor's order. They never
    /// have figures.
    [[nodiscard]] const std::vector<AppInfo>& backgroundApps() const { return backgroundApps_; }

    /// The search text.
    [[nodiscard]] const std::string& searchText() const { return searchText_; }

    /// Setting the same text again notifies no observer.
    void setSearchText(std::string text);

    /// How many ticked entries of apps() quitSelected() would quit: those that cannot be forced are
    /// not counted with `force`.
    [[nodiscard]] std::size_t selectedCount(bool force) const { return selected(force).all; }

    /// Those that selectedCount() counts.
    [[nodiscard]] EntryCount selected(bool force) const;

    /// What a click on the select-all box does now: it unticks only when every entry that
    /// setAllSelected(true) ticks is ticked. A box that is never full, because of one protected
    /// entry, can so be emptied.
    [[nodiscard]] SelectAllClick selectAllClick() const;

    /// The entries of apps() whose name contains the search text, in the order that the settings
    /// ask for. Computed on each call.
    [[nodiscard]] std::vector<AppInfo> filteredApps() const;

    /// The background entries to show: none while the settings hide them, else those whose name,
    /// or a member's, contains the search text, by name. Computed on each call.
    [[nodiscard]] std::vector<AppInfo> filteredBackgroundApps() const;

    /// Lists the running applications again; ticks and figures stay with their process ids.
    void refresh();

    /// Samples CPU and memory of apps(). What cannot be sampled keeps its figures.
    void updateResourceUsage();

    /// Samples now and then every `interval`, replacing a timer that runs.
    void startPolling(std::chrono::milliseconds interval);

    /// Stops the timer, if any.
    void stopPolling();

    /// Applies the never-quit list and the music rule to apps(): the protected are marked and
    /// unticked, music players only unticked.
    void applyWhitelist();

    /// Flips the tick of an entry of apps() that is not protected.
    void toggleSelection(ProcessId pid);

    /// Ticks or unticks all of apps(); the protected and, by the music rule, music players stay
    /// unticked.
    void setAllSelected(bool isSelected);

    /// Puts the application of an entry of apps() on the never-quit list, or takes it off.
    /// Does nothing for one without identifier.
    void toggleWhitelist(ProcessId pid);

    /// Quits one application, protected or not, and takes it out of apps(). False when a process
    /// of it is left; the list is then unchanged. Blocks while the quit engine waits.
    bool quitApp(ProcessId pid, bool force);

    /// Quits the ticked entries of apps() and takes those that are gone out of it: their number.
    /// Blocks while the quit engine waits.
    std::size_t quitSelected(bool force);

    /// Begins to quit one application, listed or a member of a group, as quitApp() would, without
    /// blocking. It and what is quit with it leave the list as they end; refresh() keeps their rows
    /// till then, and AppInfo::quitState says how far they are and why they have stayed.
    void beginQuit(ProcessId pid, bool force);

    /// Begins to quit the ticked entries of apps(), likewise.
    void beginQuitSelected(bool force);

    /// Brings the question of an application to the front, or a window of it. False where that is
    /// not possible.
    bool show(ProcessId pid);

    /// The ticked entries of apps(), which quitSelected() would quit.
    [[nodiscard]] std::vector<AppInfo> ticked() const;

    /// The sampler's counters, by process id.
    [[nodiscard]] const ResourceMonitor::Snapshots& snapshots() const {
        return resourceMonitor_.snapshots();
    }

  private:
    using Property = AppListChange::Property;

    struct Writes {
        Property property = Property::apps;
        std::size_t times = 1;
    };

    /// Tells the observers, once per field, after a pass has written them all: nobody sees a list
    /// that is half written, and an observer may change it, or destroy the model: call last.
    void written(std::initializer_list<Writes> all);
    /// Lets the sampler forget what is not listed.
    void retainSnapshots();
    /// The number of fields that were written.
    std::size_t sampleUsage();
    std::size_t markProtected();
    [[nodiscard]] AppInfo* find(ProcessId pid);
    [[nodiscard]] bool matchesSearch(std::string_view name) const;
    /// Whether setAllSelected(true) leaves the entry unticked.
    [[nodiscard]] bool isSparedBySelectAll(const AppInfo& app) const;
    [[nodiscard]] bool isMusicUnticked(const AppInfo& app) const;
    [[nodiscard]] EntryCount countApps(const std::function<bool(const AppInfo&)>& counts) const;
    [[nodiscard]] bool precedesByName(const AppInfo& a, const AppInfo& b) const;
    /// The entries, and members of groups, with these processes.
    [[nodiscard]] std::vector<AppInfo>
    recordsOf(const std::unordered_set<ProcessId>& processes) const;
    void removeQuit(const std::unordered_set<ProcessId>& gone);
    /// Takes out of apps() what beginQuit() has ended.
    void removeMeanwhile(const std::vector<AppInfo>& gone);
    /// Adds the entries of apps() that are being quit and have no window any more; gives these.
    [[nodiscard]] std::vector<AppInfo> keepQuitting(std::vector<AppInfo>& listed) const;
    [[nodiscard]] std::vector<AppInfo> backgroundOf(const ApplicationSnapshot& running,
                                                    const std::vector<AppInfo>& without) const;
    /// Writes AppInfo::quitState everywhere.
    void markQuitStates();
    [[nodiscard]] std::optional<AppInfo> findAnywhere(ProcessId pid) const;

    AppSettings& settings_;
    Platform platform_;
    QuitTogether* together_;
    ProcessMonitor processMonitor_;
    AppQuitter appQuitter_;
    ResourceMonitor resourceMonitor_;
    SoundPlayer soundPlayer_;

    std::vector<AppInfo> apps_;
    std::vector<AppInfo> backgroundApps_;
    std::string searchText_;
    Subscription pollingTimer_;
    Subscription quitChanges_;
    Subscription quitEnds_;
    Subscription quitFinishes_;
    Signal<const AppListChange&> changed_;
    Signal<const std::vector<AppInfo>&> quit_;
    /// Expires with the model.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace calmora
