// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeys.h"
#include "platform/desktop/shortcuts/Accelerator.h"

#include <string>

namespace calmora {

/// How global shortcuts work in a session.
enum class HotKeyRoute {
    /// The X server lets any program grab keys.
    grabs,
    /// KDE's daemon of global shortcuts.
    kde,
    /// The portal GlobalShortcuts: the user assigns the keys.
    portal,
    /// The user binds our commands in the configuration of sway.
    swayConfiguration,
    /// The user binds our commands wherever this desktop lets them.
    otherConfiguration,
};

/// What the choice depends on.
struct HotKeyFacts {
    bool isOnWayland = false;
    bool hasSessionBus = false;
    /// XDG_CURRENT_DESKTOP: names with ':' between them.
    std::string currentDesktop = {};
    bool hasSwaySocket = false;
    bool hasPortal = false;
};

/// The facts that the environment tells; without the portal.
[[nodiscard]] HotKeyFacts readHotKeyFacts(bool hasSessionBus);

/// The best way that there is. On X11 also KDE's programs grab keys.
[[nodiscard]] HotKeyRoute hotKeyRoute(const HotKeyFacts& facts);

/// The line that makes sway run a command. `key` may have no name, or be one of the keypad, whose
/// names depend on Num Lock; it is then given by number. Empty for a key that has neither.
/// Source: sway(5), bindsym and bindcode.
[[nodiscard]] std::string swayLine(const Accelerator& accelerator, HotKeyCombination combination,
                                   const std::string& command);

/// The text of a trigger, such as "CTRL+ALT+q"; empty for a key without a name.
/// Source: freedesktop shortcuts specification.
[[nodiscard]] std::string portalTrigger(const Accelerator& accelerator);

} // namespace calmora
