// SPDX-License-Identifier: MIT
#include "platform/desktop/hotkeys/HotKeyRoute.h"

#include "platform/linux/keyboard/KeyCodes.h"

#include <QString>
#include <QStringList>

#include <initializer_list>
#include <utility>

namespace calmora {
namespace {

using ModifierName = std::pair<std::uint32_t, const char*>;

std::string names(std::uint32_t modifiers, std::initializer_list<ModifierName> table) {
    std::string result;
    for (const auto& [mask, name] : table) {
        if ((modifiers & mask) != 0) {
            result.append(name).append("+");
        }
    }
    return result;
}

} // namespace

HotKeyFacts readHotKeyFacts(bool hasSessionBus) {
    return {.isOnWayland = qEnvironmentVariableIsSet("WAYLAND_DISPLAY"),
            .hasSessionBus = hasSessionBus,
            .currentDesktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toStdString(),
            .hasSwaySocket = qEnvironmentVariableIsSet("SWAYSOCK")};
}

HotKeyRoute hotKeyRoute(const HotKeyFacts& facts) {
    const QStringList desktops = QString::fromStdString(facts.currentDesktop).split(':');
    if (!facts.isOnWayland) {
        return HotKeyRoute::grabs;
    }
    if (facts.hasSessionBus && desktops.contains("KDE")) {
        return HotKeyRoute::kde;
    }
    if (facts.hasSessionBus && facts.hasPortal) {
        return HotKeyRoute::portal;
    }
    return facts.hasSwaySocket || desktops.contains("sway") ? HotKeyRoute::swayConfiguration
                                                            : HotKeyRoute::otherConfiguration;
}

std::string swayLine(const Accelerator& accelerator, HotKeyCombination combination,
                     const std::string& command) {
    const std::string modifiers = names(accelerator.modifiers, {{carbon::command, "Mod4"},
                                                                {carbon::option, "Mod1"},
                                                                {carbon::control, "Ctrl"},
                                                                {carbon::shift, "Shift"}});
    if (!accelerator.key.empty() && !accelerator.key.starts_with("KP_")) {
        return "bindsym " + modifiers + accelerator.key + " exec " + command;
    }
    const auto number = x11KeyCode(combination.keyCode);
    return number ? "bindcode " + modifiers + std::to_string(*number) + " exec " + command : "";
}

std::string portalTrigger(const Accelerator& accelerator) {
    const std::string modifiers = names(accelerator.modifiers, {{carbon::control, "CTRL"},
                                                                {carbon::option, "ALT"},
                                                                {carbon::shift, "SHIFT"},
                                                                {carbon::command, "LOGO"}});
    return accelerator.key.empty() ? "" : modifiers + accelerator.key;
}

} // namespace calmora
