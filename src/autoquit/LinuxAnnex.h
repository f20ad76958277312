#pragma once

#include "autoquit/KnownApps.h"

#include <optional>
#include <span>
#include <string_view>

namespace calmora {

/// One line of the annex.
struct AnnexEntry {
    /// A desktop file id without ".desktop", or a workspace's identifier for a program without one.
    std::string_view identifier;
    IdleBehavior idleBehavior;
};

/// The annex to the catalogue: how auto-quit treats Linux applications that are not in it, judged
/// one by one by what is lost when they are closed after half an hour. Ordered by identifier; no
/// identifier stands twice, and none is in the catalogue.
[[nodiscard]] std::span<const AnnexEntry> linuxAnnex();

/// The behavior of an identifier in the annex, compared exactly; absent for all others.
/// Cost: a binary search.
[[nodiscard]] std::optional<IdleBehavior> annexBehavior(std::string_view identifier);

} // namespace calmora
