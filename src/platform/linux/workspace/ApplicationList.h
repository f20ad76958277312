// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"
#include "platform/linux/identity/ApplicationIdentity.h"
#include "platform/linux/workspace/BackgroundScan.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

class BusApplications;
class Clock;
class EventPoll;
class InstalledApplications;
class ProcessMemory;
class ProcessReader;
class ProcessTable;
class ProtectedProcesses;
class WindowSystem;

/// The workspace's data sources, which must outlive it.
struct WorkspaceSources {
    Clock& clock;
    EventPoll& events;
    WindowSystem& windows;
    const ProcessReader& reader;
    /// Shared with `processes`.
    ProcessMemory& memory;
    ProcessTable& processes;
    InstalledApplications& installed;
    ProtectedProcesses& protection;
    BusApplications& bus;
    /// The user's home folder; empty when it is not known.
    std::string home;
};

/// An application process at one moment.
struct ListedApplication {
    ProcessDetails process;
    ApplicationIdentity identity;
    ActivationPolicy policy = ActivationPolicy::prohibited;
    /// All its windows, oldest first.
    std::vector<TopLevelWindow> windows;
    /// All processes that some of them may belong to, ascending; empty if all owners are known.
    std::vector<ProcessId> candidates;
    /// The desktop entry's picture, else the window's; absent if none.
    std::optional<Image> icon;

    /// Whether both are the same process: process ids are reused.
    [[nodiscard]] bool isSameProcess(const ListedApplication& other) const {
        return process.pid == other.process.pid && process.startTime == other.process.startTime;
    }
};

/// Builds the list of running applications from windows, processes and desktop entries. Reuses
/// everything unchanged since the last update. Main thread.
class ApplicationList {
  public:
    using Applications = std::vector<std::shared_ptr<const ListedApplication>>;

    explicit ApplicationList(WorkspaceSources sources);

    /// Reads the installed applications again if they changed and drops results based on the old
    /// ones. Only this class may refresh them.
    void refreshInstalled();

    /// Scans for applications without windows; update() uses the last scan.
    void scanBackground();

    /// As scanBackground(), for repeated calls while events keep the rest up to date: skips what
    /// can hardly have changed. Returns whether the list is due for an update().
    [[nodiscard]] bool scanAgain();

    /// Updates the list, sorted by start time, then process id.
    const Applications& update();

    /// Works out one application alone, which is all that starting the program waits for; null if
    /// the process is none. The list stays as it is.
    [[nodiscard]] std::shared_ptr<const ListedApplication> look(ProcessId process);

    /// As of the last update().
    [[nodiscard]] const Applications& applications() const { return applications_; }

    /// As of the last update() or look(), oldest first.
    [[nodiscard]] const std::vector<TopLevelWindow>& windows() const { return windows_; }

  private:
    struct Candidate {
        std::vector<TopLevelWindow> windows;
        /// As ListedApplication::candidates.
        std::vector<ProcessId> processes;
        ActivationFacts facts;
    };

    using Candidates = std::map<ProcessId, Candidate>;

    /// The guard's last answer, for the list only; it is asked again before each signal.
    struct Verdict {
        std::uint64_t startTime = 0;
        bool hasRegularWindow = false;
        bool isProtected = false;
        std::chrono::nanoseconds askedAt{};
        std::chrono::seconds lifetime{};
    };

    /// Reads everything that the list is made from.
    [[nodiscard]] Candidates read();
    [[nodiscard]] Candidates candidates();
    [[nodiscard]] bool isAnyProtected(ProcessId process, std::uint64_t startTime,
                                      const Candidate& candidate);
    [[nodiscard]] std::optional<std::uint64_t> startTime(ProcessId process) const;
    [[nodiscard]] bool isProtected(ProcessId process, std::uint64_t startTime,
                                   bool hasRegularWindow);
    void dropOldVerdicts(bool windowsChanged);
    void readTrayIcons();
    [[nodiscard]] std::shared_ptr<const ListedApplication> listed(ProcessId process,
                                                                  Candidate& candidate);
    [[nodiscard]] std::optional<Image> iconOf(const ApplicationIdentity& identity,
                                              const std::vector<TopLevelWindow>& windows);

    WorkspaceSources sources_;
    BackgroundScan background_;
    std::optional<std::chrono::nanoseconds> checkedInstalled_;
    bool hasScanned_ = false;
    std::vector<TopLevelWindow> windows_;
    /// Start times of processes with a tray icon when they were last asked for.
    std::map<ProcessId, std::uint64_t> trayIcons_;
    std::chrono::nanoseconds trayIconsReadAt_{};
    std::chrono::nanoseconds updatedAt_{};
    /// Since the last update().
    bool hasForgotten_ = false;
    /// Start times of processes that had a regular window.
    std::map<ProcessId, std::uint64_t> wereRegular_;
    std::map<ProcessId, Verdict> verdicts_;
    /// Inputs of the verdicts.
    std::vector<ProcessId> busOwners_;
    std::vector<ProcessId> displayProcesses_;
    Applications applications_;
    std::map<ProcessId, std::shared_ptr<const ListedApplication>> byProcess_;
};

} // namespace calmora
