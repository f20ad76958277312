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

/// Gathers what the protection rules ask for and applies them. isProtected() reads the session
/// again when what is known of it is older than a quarter of a second; the owners of bus names, and
/// what a process is, each time. Main thread.
class SessionGuard final : public ProtectedProcesses {
  public:
    struct Sources {
        /// The processes of the display: server, window manager, tray, docks, desktops.
        std::function<std::vector<ProcessId>()> display = {};
        /// The owners of the bus names on which the session rests.
        std::function<std::vector<ProcessId>()> busOwners = {};
        /// Whether a process with this command line and executable runs what the system starts
        /// with every session. Empty knows of none.
        std::function<bool(const std::vector<std::string>&, const std::optional<std::string>&)>
            isAutostarted = {};
        /// Whether the process has a window that users switch to. Empty knows of none.
        std::function<bool(ProcessId)> hasRegularWindow = {};
        /// Reads an environment variable; null when it is not set. Empty reads our own.
        std::function<const char*(const char*)> environment = {};
        /// Where logind keeps its sessions.
        std::filesystem::path loginSessions = "/run/systemd/sessions";
    };

    /// `reader` and `clock` must outlive the guard. Without sources it protects what the kernel
    /// alone tells: the first processes, ourselves and our ancestors, other users' processes,
    /// kernel threads, and what is known by its name or control group.
    SessionGuard(const ProcessReader& reader, const Clock& clock, Sources sources);

    /// Cost: nothing for what the session tells, else about 25 µs.
    [[nodiscard]] bool isProtected(ProcessId process) override;
    [[nodiscard]] bool isProtectedNow(ProcessId process) override;

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
