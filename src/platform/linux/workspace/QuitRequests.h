// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/windows/WindowSystem.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>

namespace calmora {

/// Remembers the windows that were open when an application was last asked to quit. A dialog opened
/// since then is its question to the user and must not be disturbed: closing it means Cancel.
class QuitRequests {
  public:
    /// Such a dialog of the application that is open now; absent for none.
    [[nodiscard]] std::optional<WindowId> question(ProcessId process, std::uint64_t startTime,
                                                   std::span<const TopLevelWindow> windows) const;

    /// Whether the application has such a dialog open now.
    [[nodiscard]] bool isAsking(ProcessId process, std::uint64_t startTime,
                                std::span<const TopLevelWindow> windows) const {
        return question(process, startTime, windows).has_value();
    }

    /// Forgets processes for which `hasEnded` returns true.
    void forgetEnded(const std::function<bool(ProcessId, std::uint64_t startTime)>& hasEnded);

    /// Records a request with these windows open.
    void remember(ProcessId process, std::uint64_t startTime,
                  std::span<const TopLevelWindow> windows);

  private:
    struct Request {
        std::uint64_t startTime = 0;
        std::set<WindowId> windows;
    };

    std::map<ProcessId, Request> requests_;
};

} // namespace calmora
