#pragma once

#include "platform/ProcessId.h"

namespace calmora {

/// Climbs from a process to its ancestors, nearest first, until `found(ancestor)` is true; false
/// when it was for none. `parentOf` gives 0 where there is no parent. Bounded, since the tree may
/// change while it is climbed.
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
