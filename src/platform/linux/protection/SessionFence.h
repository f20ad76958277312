#pragma once

#include "platform/linux/proc/ProcessReader.h"
#include "platform/linux/protection/ProtectedProcesses.h"
#include "platform/linux/protection/ProtectionRules.h"
#include "platform/linux/protection/SocketPeers.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace calmora {

/// Gathers what the rules of protection ask for and applies them. What the session looks like is
/// read again when it is older than a quarter of a second; who owns names of the bus, and what a
/// process is, each time.
/// Main thread.
class SessionFence final : public ProtectedProcesses {
  public:
    struct Sources {
        /// The processes of the display: server, window manager, tray, docks, desktops.
        std::function<std::vector<ProcessId>()> display;
        /// The owners of the bus names on which the session rests.
        std::function<std::vector<ProcessId>()> busOwners;
        /// Whether a process with this command line and executable runs what the system starts
        /// with every session. Empty knows of none.
        std::function<bool(const std::vector<std::string>&, const std::optional<std::string>&)>
            isAutostarted = {};
        /// Whether the process has a window that users switch to. Empty knows of none.
        std::function<bool(ProcessId)> hasRegularWindow = {};
        /// Reads an environment variable; null when it is not set. Empty reads our own.
        std::function<const char*(const char*)> environment;
        /// Where logind keeps its sessions.
        std::filesystem::path loginSessions = "/run/systemd/sessions";
    };

    /// `reader` must outlive the fence.
    SessionFence(const ProcessReader& reader, Sources sources);

    /// Cost: nothing for what the session tells, else about 25 µs.
    [[nodiscard]] bool isProtected(ProcessId process) override;

    /// Why the process is protected; absent when it is not.
    [[nodiscard]] std::optional<ProtectionReason> reason(ProcessId process);

  private:
    [[nodiscard]] SessionFacts gather();
    [[nodiscard]] std::string controlGroup(ProcessId process) const;
    [[nodiscard]] std::string variable(const char* name) const;
    void addListener(std::set<ProcessId>& processes, const std::string& path);

    const ProcessReader& reader_;
    Sources sources_;
    SocketPeers peers_;
    SessionFacts session_;
    std::optional<std::chrono::steady_clock::time_point> gathered_;
};

} // namespace calmora
