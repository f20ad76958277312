#pragma once

#include "autoquit/catalogue/KnownApps.h"

#include <optional>
#include <string_view>

namespace calmora {

/// How auto-quit treats a Linux application that is not in the catalogue, judged one by one by
/// what is lost when it is closed after half an hour. The identifier is a desktop file id without
/// ".desktop", compared exactly. Absent for what is not listed; nothing is that the catalogue
/// knows.
/// Cost: a binary search in each of some thirty lists.
[[nodiscard]] std::optional<IdleBehavior> annexBehavior(std::string_view identifier);

} // namespace calmora
