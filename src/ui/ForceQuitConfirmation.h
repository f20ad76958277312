// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"

#include <cstddef>
#include <optional>
#include <string>

namespace calmora {

class Alerts;
class LocalizedStrings;

/// Asks before the `count` ticked applications are force-quit: true when the user agrees. One
/// question for the popover and the shortcut. Blocks until answered.
[[nodiscard]] bool confirmForceQuitAll(Alerts& alerts, const LocalizedStrings& strings,
                                       std::size_t count);

/// Asks before one application is force-quit: true when the user agrees. Without an icon the
/// question shows the program's own. Blocks until answered.
[[nodiscard]] bool confirmForceQuit(Alerts& alerts, const LocalizedStrings& strings,
                                    const std::string& appName, const std::optional<Image>& icon);

} // namespace calmora
