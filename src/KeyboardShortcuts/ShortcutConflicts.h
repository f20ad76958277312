#pragma once

#include "KeyboardShortcuts/Shortcut.h"
#include "platform/MainMenu.h"
#include "platform/SystemShortcuts.h"

#include <optional>
#include <span>
#include <string>

namespace calmora {

class ShortcutText;

/// The title of the first item, depth first, that the shortcut would choose; absent when there is
/// none.
[[nodiscard]] std::optional<std::string> menuConflict(const Shortcut& shortcut,
                                                      std::span<const MainMenuItem> menu,
                                                      const ShortcutText& text);

/// Whether one of the desktop's enabled shortcuts is the same. F12 alone never is.
[[nodiscard]] bool isTakenBySystem(const Shortcut& shortcut,
                                   std::span<const SymbolicHotKey> systemShortcuts);

/// The system that the program runs on, as far as it limits shortcuts.
struct HostSystem {
    /// macOS version; absent on any other system.
    struct Version {
        int major = 0;
        int minor = 0;
    };

    std::optional<Version> macOS;
    bool isSandboxed = false;
};

/// Whether the system refuses the shortcut to programs like ours: two releases of one system give
/// sandboxed programs no shortcut whose only modifier, Shift aside, is Option.
[[nodiscard]] bool isDisallowed(const Shortcut& shortcut, const HostSystem& host);

} // namespace calmora
