// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "support/FileDescriptor.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace calmora {

/// How a program is started.
struct ProgramStart {
    /// The path of the executable file.
    std::string program = {};
    /// Its name first.
    std::vector<std::string> arguments = {};
    /// NAME=value. The new process adds launchedPid() with its own id.
    std::vector<std::string> environment = {};
    /// The working directory; if it cannot be entered, the root.
    std::string folder = {};
    /// The soft limit of open files.
    std::size_t openFiles = 1024;
};

/// A process of its own that waits to become a program: no child of this one, in a session of its
/// own, without its descriptors (the standard ones are /dev/null), signal handlers and signal mask.
/// It ends if this object is destroyed, or this process ends, before run().
class DetachedProgram {
  public:
    /// Makes the process; absent if none can be made.
    [[nodiscard]] static std::optional<DetachedProgram> prepare(const ProgramStart& start);

    /// The process, which keeps its id when it becomes the program.
    [[nodiscard]] ProcessId process() const { return process_; }

    /// Lets it become the program. False if the program cannot be executed; the process is gone
    /// then. Call once.
    bool run();

  private:
    DetachedProgram(ProcessId process, FileDescriptor go, FileDescriptor goReader,
                    FileDescriptor status)
        : process_(process), go_(std::move(go)), goReader_(std::move(goReader)),
          status_(std::move(status)) {}

    ProcessId process_;
    /// A byte lets it run.
    FileDescriptor go_;
    /// The other end: without a reader the byte would end this program (SIGPIPE) where somebody has
    /// ended the process.
    FileDescriptor goReader_;
    /// Closed when the program runs; carries a byte if it does not.
    FileDescriptor status_;
};

/// Waits until a process is in the control group of this name. False if it is not after `timeout`.
/// Source: cgroups(7), /proc/pid/cgroup.
bool waitForControlGroup(ProcessId process, std::string_view name,
                         std::chrono::milliseconds timeout);

} // namespace calmora
