// SPDX-License-Identifier: MIT
#pragma once

#include "support/FileDescriptor.h"

#include <chrono>
#include <filesystem>
#include <string>

namespace calmora {

/// A lock that one process of the user holds at a time, and a socket through which others reach the
/// holder. Both end with the process, however it ends.
/// Source: flock(2), unix(7).
class RuntimeLock {
  public:
    /// Tries to take the lock `folder`/`name`.lock.
    RuntimeLock(const std::filesystem::path& folder, const std::string& name);

    /// Whether another process has the lock. False also where no lock can be made. May end during
    /// askHolder().
    [[nodiscard]] bool isHeldElsewhere() const { return isHeldElsewhere_; }

    /// The holder's socket, readable at a connection attempt; negative for others.
    [[nodiscard]] int descriptor() const { return socket_.get(); }

    /// Takes one connection attempt. False when there is none.
    [[nodiscard]] bool acceptAttempt() const;

    /// Makes a connection attempt: whether the holder takes it in this time. Where the holder ends
    /// meanwhile, this process gets the lock and the answer is false.
    bool askHolder(std::chrono::milliseconds timeout);

    /// The folder for such locks: XDG_RUNTIME_DIR, else one of the user's own below /tmp. Empty
    /// where none is writable by the user alone.
    /// Source: freedesktop XDG Base Directory Specification.
    [[nodiscard]] static std::filesystem::path userFolder();

    /// The name of a lock for this user's display: several sessions may share the folder.
    [[nodiscard]] static std::string nameForDisplay(const std::string& applicationId);

  private:
    /// Tries to become the holder.
    void take();

    FileDescriptor folder_;
    FileDescriptor lock_;
    FileDescriptor socket_;
    std::string socketName_;
    bool isHeldElsewhere_ = false;
};

} // namespace calmora
