// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace calmora {

class ProcessTable;

/// Which processes started which, at one moment. Reads nothing before it is asked. Main thread.
class ProcessTree {
  public:
    /// `processes` must outlive the tree.
    explicit ProcessTree(const ProcessTable& processes) : processes_(processes) {}

    /// The process and all that it and its descendants have started, itself first. Reads the table
    /// once, until reset().
    [[nodiscard]] std::vector<ProcessId> withDescendants(ProcessId process);

    /// Forgets the table, for another moment.
    void reset() { children_.reset(); }

  private:
    void readChildren();

    const ProcessTable& processes_;
    std::optional<std::unordered_map<ProcessId, std::vector<ProcessId>>> children_;
};

} // namespace calmora
