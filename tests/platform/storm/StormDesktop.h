#pragma once

#include "platform/linux/proc/PidFd.h"
#include "platform/workspace/WorkspaceTest.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace calmora {

/// A process that is watched without the program under test: its end cannot be missed, and no
/// later process with the same id is taken for it.
struct Watched {
    explicit Watched(pid_t process) : id(process) {
        if (auto opened = PidFd::open(process)) {
            descriptor = std::make_shared<const PidFd>(*std::move(opened));
        }
    }

    [[nodiscard]] bool hasEnded() const { return !descriptor || descriptor->hasExited(); }

    pid_t id;
    std::shared_ptr<const PidFd> descriptor;
};

/// A program below a keeper: when the program ends, the keeper collects it at once and makes
/// another process with the same id.
struct KeptProgram {
    pid_t keeper = 0;
    pid_t program = 0;
    FileDescriptor report;
};

/// A virtual desktop with installed programs of every kind, each the same test client.
struct StormDesktop : LinuxDesktop {
    StormDesktop();

    /// Makes the kernel continue after this process id.
    static void setLastId(pid_t last);

    /// The file of an installed program.
    [[nodiscard]] std::filesystem::path file(const std::string& program) const;

    /// The command that runs an application with a window of its own class.
    [[nodiscard]] std::vector<std::string> command(const std::string& application,
                                                   std::vector<std::string> options = {}) const;

    /// Starts an application and waits until it is listed.
    pid_t shownApplication(const std::string& application, std::vector<std::string> options = {});

    /// Starts a program without a window.
    pid_t background(const std::string& program);

    /// Starts an application below a keeper and waits until it is listed. `next` is what runs
    /// under its id afterwards; empty for a process that does nothing.
    KeptProgram kept(const std::string& application, const std::vector<std::string>& next = {});

    /// The process that got a kept program's id after its end; absent within the time.
    static std::optional<pid_t> successor(const KeptProgram& program);

    /// Ends a process that this one or a process of its has started, and collects it.
    void end(const Watched& process);
};

} // namespace calmora
