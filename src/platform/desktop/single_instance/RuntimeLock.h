#pragma once

#include "support/FileDescriptor.h"

#include <chrono>
#include <filesystem>
#include <string>

namespace calmora {

/// A lock that one process of the user holds at a time, with a socket beside it through which
/// others reach the holder. Both end with the process, however it ends.
/// Source: flock(2), unix(7).
class RuntimeLock {
  public:
    /// Tries to take the lock `folder`/`name`.lock.
    RuntimeLock(const std::filesystem::path& folder, const std::string& name);

    /// Whether another process has the lock. False also where nobody can lock.
    [[nodiscard]] bool isHeldElsewhere() const { return isHeldElsewhere_; }

    /// The socket on which the holder hears of others: readable when one knocks. Negative for
    /// those who are not the holder.
    [[nodiscard]] int knocks() const { return socket_.get(); }

    /// The holder: takes one knock and answers it. False when nobody knocks.
    bool answer() const;

    /// Another one: knocks at the holder's and waits for the answer.
    [[nodiscard]] bool knock(std::chrono::milliseconds atMost) const;

    /// The folder for such locks: XDG_RUNTIME_DIR, else one of the user's own below /tmp; empty
    /// where there is none that only the user can write.
    /// Source: freedesktop XDG Base Directory Specification.
    [[nodiscard]] static std::filesystem::path userFolder();

  private:
    FileDescriptor folder_;
    FileDescriptor lock_;
    FileDescriptor socket_;
    std::string socketName_;
    bool isHeldElsewhere_ = false;
};

} // namespace calmora
