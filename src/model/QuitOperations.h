// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"
#include "platform/ProcessId.h"
#include "platform/Workspace.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace calmora {

/// The operations through which the quit engine reaches the machine.
struct AppQuitterOperations {
    using Application = std::unique_ptr<RunningApplication>;

    /// The running application with a process id; null where there is none.
    std::function<Application(ProcessId)> lookupApp;
    /// Every running application with an identifier, in the workspace's order.
    std::function<std::vector<Application>(const std::string&)> lookupAppsByBundleID;
    /// Sends a signal: 0 on success, -1 with errno set on failure, as kill(2).
    std::function<std::int32_t(ProcessId, std::int32_t)> sendSignal;
    /// Whether a process exists, also one that may not be signalled.
    std::function<bool(ProcessId)> processExists;
    /// The processes whose executable's path begins with a text.
    std::function<std::set<ProcessId>(const std::string&)> lookupProcessIDsInBundlePath;
    /// ProcessTable::heldProcess(): which process an id has meant since it was looked up.
    std::function<std::uint64_t(ProcessId)> heldProcess;
    /// Blocks for at least this long.
    std::function<void(std::chrono::microseconds)> sleep;
};

/// The operations on the real machine. The process table holds every process that they return, so
/// that later tests and signals cannot reach another process with the same id.
[[nodiscard]] AppQuitterOperations platformOperations(Platform platform);

/// Processes as they were looked up: a later one with the id of one of them is none of them, also
/// when the process table has been told to hold that one since.
class HeldProcesses {
  public:
    HeldProcesses() = default;

    /// The processes that `operations` hold under these ids now.
    HeldProcesses(const AppQuitterOperations& operations, const std::set<ProcessId>& pids);

    /// Those that still exist.
    [[nodiscard]] std::set<ProcessId> existing(const AppQuitterOperations& operations) const;

    [[nodiscard]] bool anyExists(const AppQuitterOperations& operations) const;

  private:
    [[nodiscard]] static bool exists(const AppQuitterOperations& operations,
                                     const std::pair<const ProcessId, std::uint64_t>& process);

    std::map<ProcessId, std::uint64_t> processes_;
};

/// The steps of one forced quit, without the waits between them: every running instance of an
/// application, and the processes inside their bundles.
class ForcedQuit {
  public:
    /// What the kill signal came to.
    enum class Kill {
        /// No process was left.
        needless,
        sent,
        /// One may not be signalled, and the rest got no signal; or nothing was ever delivered and
        /// nothing is left.
        refused,
    };

    /// Collects the victims. Absent for an application with several candidates, which is never
    /// forced. `operations` must outlive it.
    [[nodiscard]] static std::optional<ForcedQuit> of(const AppQuitterOperations& operations,
                                                      AppQuitterOperations::Application app);

    /// Force-terminates every instance but those in `asked`, to which it adds them.
    void ask(std::set<ProcessId>& asked);

    /// Whether any of the victims still exists.
    [[nodiscard]] bool anyExists() const { return victims_.anyExists(*operations_); }

    /// Sends the kill signal to the victims that still exist.
    [[nodiscard]] Kill kill() const;

  private:
    ForcedQuit(const AppQuitterOperations& operations,
               std::vector<AppQuitterOperations::Application> instances, HeldProcesses victims)
        : operations_(&operations), instances_(std::move(instances)), victims_(std::move(victims)) {
    }

    const AppQuitterOperations* operations_;
    std::vector<AppQuitterOperations::Application> instances_;
    HeldProcesses victims_;
    /// Whether any instance took the request.
    bool isDelivered_ = false;
};

} // namespace calmora
