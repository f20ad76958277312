// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/proc/ProtectedProcesses.h"
#include "platform/linux/protection/ProtectionRules.h"
#include "platform/linux/protection/SocketPeers.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace calmora {

/// Gathers the facts for the protection rules and applies them. isProtected() refreshes session
/// facts after a quarter of a second; owners of bus names and process facts are read each time.
/// Main thread.
class SessionGuard final : public ProtectedProcesses {
  public:
    struct Sources {
        /// The processes of the display, see WindowSystem::displayProcesses().
        std::function<std::vector<ProcessId>()> display = {};
        /// The owners of essential bus names.
        std::function<std::vector<ProcessId>()> busOwners = {};
        /// Whether a process with this command line and executable runs an autostart entry of the
        /// system. Empty means none do.
        std::function<bool(const std::vector<std::string>&, const std::optional<std::string>&)>
            isAutostarted = {};
        /// Whether the process has a window that users switch to. Empty means none has.
        std::function<bool(ProcessId)> hasRegularWindow = {};
        /// Reads an environment variable; null if not set. Empty means our own environment.
        std::function<const char*(const char*)> environment = {};
        /// logind's session files.
        std::filesystem::path loginSessions = "/run/systemd/sessions";
    };

    /// `reader` and `clock` must outlive the guard. Without sources it relies on the kernel alone:
    /// the first processes, ourselves and our ancestors, other users, kernel threads, names and
    /// control groups.
    SessionGuard(const ProcessReader& reader, const Clock& clock, Sources sources);

    /// Cost: none if session facts decide, else about 25 µs.
    [[nodiscard]] bool isProtected(ProcessId process) override {
        return reason(process).has_value();
    }

    [[nodiscard]] bool isProtectedNow(ProcessId process) override {
        gathered_.reset();
        return isProtected(process);
    }

    /// Why the process is protected; absent when it is not.
    [[nodiscard]] std::optional<ProtectionReason> reason(ProcessId process);

  private:
    [[nodiscard]] SessionFacts gather();
    [[nodiscard]] std::string variable(const char* name) const;
    void addListener(std::set<ProcessId>& processes, const std::string& path);

    const ProcessReader& reader_;
    const Clock& clock_;
    Sources sources_;
    SocketPeers peers_;
    SessionFacts session_;
    std::optional<std::chrono::nanoseconds> gathered_;
};

} // namespace calmora
