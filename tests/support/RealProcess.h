// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "support/Waiting.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <stdexcept>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

/// Skips the rest of a test for a user who may not arrange what it is about; `what` says what.
#define SKIP_WITHOUT_RIGHT(isAllowed, what)                                                        \
    if (!(isAllowed))                                                                              \
    GTEST_SKIP() << "only root may " << (what)

namespace calmora {

/// The user id of "nobody".
constexpr uid_t nobody = 65534;

/// A child process for one test; its end is the child's.
class RealProcess {
  public:
    /// Runs `body` in a fork, which then waits for its end. Returns once `body` has returned or
    /// has become another program.
    explicit RealProcess(const std::function<void()>& body = [] {}) {
        std::array<int, 2> ready{};
        if (pipe2(ready.data(), O_CLOEXEC) != 0 || (id_ = fork()) < 0) {
            throw std::runtime_error("no process");
        }
        if (id_ == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            close(ready[0]);
            body();
            // Children of the body may keep the pipe open, so its end alone would not do.
            while (write(ready[1], "", 1) < 0 && errno == EINTR) {
            }
            close(ready[1]);
            while (true) {
                pause();
            }
        }
        close(ready[1]);
        char byte = 0;
        // A byte says that it is ready, the end of the pipe that it closed it or has died.
        while (read(ready[0], &byte, 1) < 0 && errno == EINTR) {
        }
        close(ready[0]);
    }

    RealProcess(const RealProcess&) = delete;
    RealProcess& operator=(const RealProcess&) = delete;

    ~RealProcess() {
        ::kill(id_, SIGKILL);
        waitpid(id_, nullptr, 0);
    }

    [[nodiscard]] ProcessId id() const { return id_; }

  private:
    ProcessId id_ = 0;
};

} // namespace calmora
