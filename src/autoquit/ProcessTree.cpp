// SPDX-License-Identifier: MIT
#include "autoquit/ProcessTree.h"

#include "platform/ProcessTable.h"

#include <unordered_set>

namespace calmora {

std::vector<ProcessId> ProcessTree::withDescendants(ProcessId process) {
    if (!children_) {
        readChildren();
    }
    std::vector<ProcessId> tree;
    std::unordered_set<ProcessId> seen;
    std::vector<ProcessId> pending{process};
    while (!pending.empty()) {
        const ProcessId next = pending.back();
        pending.pop_back();
        // Reused pids can make a cycle.
        if (!seen.insert(next).second) {
            continue;
        }
        tree.push_back(next);
        const auto found = children_->find(next);
        if (found != children_->end()) {
            pending.insert(pending.end(), found->second.begin(), found->second.end());
        }
    }
    return tree;
}

void ProcessTree::readChildren() {
    children_.emplace();
    for (const ProcessId process : processes_.allProcesses()) {
        if (const auto parent = processes_.parent(process)) {
            (*children_)[*parent].push_back(process);
        }
    }
}

} // namespace calmora
