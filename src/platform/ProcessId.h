// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace calmora {

/// A process id; values below 1 name no process.
using ProcessId = std::int32_t;

/// Visits the ancestors of a process, nearest first, until `found(ancestor)` returns true. Returns
/// whether it did. `parentOf` returns 0 without a parent. Bounded, because the tree may change
/// meanwhile.
template <typename ParentOf, typename Found>
[[nodiscard]] bool anyAncestor(ProcessId process, const ParentOf& parentOf, const Found& found) {
    ProcessId ancestor = parentOf(process);
    for (int depth = 0; depth < 64 && ancestor > 0; ++depth) {
        if (found(ancestor)) {
            return true;
        }
        ancestor = parentOf(ancestor);
    }
    return false;
}

} // namespace calmora
