#pragma once

#include "platform/ProcessId.h"

#include <filesystem>
#include <string>
#include <vector>

namespace calmora {

/// How a process is started.
struct RealProcess {
    /// Folder below the test's own in which its executable lies.
    std::string folder;
    bool ignoresTerm = false;
    /// Its parent has ended already.
    bool isOrphan = false;
    /// Runs as nobody; only root can start one.
    bool isForeign = false;
};

/// Sleeping processes in a temporary folder. Whatever is left ends with the owner.
class RealProcesses {
  public:
    RealProcesses();
    ~RealProcesses();

    RealProcesses(const RealProcesses&) = delete;
    RealProcesses& operator=(const RealProcesses&) = delete;

    /// Starts a process and returns when it runs its executable.
    ProcessId start(const RealProcess& how);

    /// The folder of `start({folder})`, ending in a slash.
    [[nodiscard]] std::string folder(const std::string& name) const;

    /// Takes the end of our ended children, so that they are no zombies.
    void reap();

    /// Whether the process runs an executable of ours.
    [[nodiscard]] bool isRunning(ProcessId process) const;

  private:
    std::filesystem::path root_;
    std::vector<ProcessId> started_;
};

} // namespace calmora
