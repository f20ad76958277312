// SPDX-License-Identifier: MIT
#include "autoquit/UseRules.h"

#include <algorithm>

namespace calmora {

SpareReason spareReason(UseKind kind) {
    switch (kind) {
    case UseKind::playsSound:
        return SpareReason::playsSound;
    case UseKind::recordsSound:
        return SpareReason::recordsSound;
    case UseKind::playsMedia:
        return SpareReason::playsMedia;
    case UseKind::sharesScreen:
        return SpareReason::sharesScreen;
    case UseKind::inhibitsSleep:
        return SpareReason::inhibitsSleep;
    case UseKind::isFullScreen:
        return SpareReason::isFullScreen;
    }
    return SpareReason::useIsUnknown;
}

std::optional<SpareReason> useOf(std::span<const ProcessId> tree, bool isInFront,
                                 const UseReport& report, std::chrono::duration<double> recently) {
    if (isInFront && (!report.sinceInput || *report.sinceInput < recently)) {
        return SpareReason::isInFront;
    }
    // Of several uses the first kind is told, so that what is shown does not jump.
    std::optional<UseKind> first;
    for (const ProcessUse& use : report.uses) {
        if (std::ranges::count(tree, use.process) > 0 && (!first || use.kind < *first)) {
            first = use.kind;
        }
    }
    if (first) {
        return spareReason(*first);
    }
    return report.isComplete ? std::nullopt : std::optional(SpareReason::useIsUnknown);
}

} // namespace calmora
