// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/SpareReason.h"

#include <QString>

namespace calmora {

struct Prospect;

/// What auto-quit will do to an application and why, in a line such as "Never: terminal".
[[nodiscard]] QString prospectText(const Prospect& prospect);

/// Why an application is left alone, to stand after a colon; empty for what nobody needs to know.
[[nodiscard]] QString reasonText(SpareReason reason);

} // namespace calmora
