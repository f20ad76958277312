// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/SpareReason.h"
#include "platform/ProcessId.h"
#include "platform/UseSources.h"

#include <chrono>
#include <optional>
#include <span>

namespace calmora {

/// The reason that a kind of use is.
[[nodiscard]] SpareReason spareReason(UseKind kind);

/// How an application is in use, if it is: its processes are `tree`, and it `isInFront` or not.
/// Being in front counts if there was input within `recently`, or if nobody tells of input. A
/// report that is not complete leaves it unknown.
[[nodiscard]] std::optional<SpareReason> useOf(std::span<const ProcessId> tree, bool isInFront,
                                               const UseReport& report,
                                               std::chrono::duration<double> recently);

} // namespace calmora
