// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"

#include <cstddef>
#include <span>
#include <vector>

namespace calmora {

/// Small processes of our own that sleep until the end of their owner.
class Children {
  public:
    /// Starts at most 2000 children; fewer where the system gives no more.
    explicit Children(std::size_t count);

    /// Ends and reaps them.
    ~Children();

    Children(const Children&) = delete;
    Children& operator=(const Children&) = delete;

    [[nodiscard]] std::span<const ProcessId> processes() const { return processes_; }

  private:
    std::vector<ProcessId> processes_;
};

} // namespace calmora
