#pragma once

#include "platform/ProcessId.h"

#include <functional>
#include <string>

#include <sys/types.h>

namespace calmora {

/// A child process for one test; its end is the child's.
class RealProcess {
  public:
    /// Runs `body` in a fork, which then waits for its end. Returns once `body` has returned or
    /// has become another program.
    explicit RealProcess(const std::function<void()>& body = [] {});
    RealProcess(const RealProcess&) = delete;
    RealProcess& operator=(const RealProcess&) = delete;
    ~RealProcess();

    [[nodiscard]] ProcessId id() const { return id_; }

    /// Ends the child and leaves it unreaped.
    void kill() const;

    /// Collects the child, which must have ended or be ending.
    void reap();

  private:
    ProcessId id_ = 0;
};

/// Runs `body` in a fork and gives what it returned: the first thing that is wrong, empty when
/// nothing is.
std::string inFork(const std::function<std::string()>& body);

/// The same as another user, who must be "nobody"; root only.
std::string asNobody(const std::function<std::string()>& body);

/// Looks at the condition every millisecond until it holds; false after ten seconds.
bool holdsSoon(const std::function<bool()>& condition);

/// The user id of "nobody".
constexpr uid_t nobody = 65534;

} // namespace calmora
