#pragma once

#include "KeyboardShortcuts/Shortcut.h"
#include "platform/MainMenu.h"
#include "platform/SystemShortcuts.h"

#include <optional>
#include <span>
#include <string>

namespace calmora {

class ShortcutText;

/// The title of the first item, depth first, with this shortcut; absent if there is none.
[[nodiscard]] std::optional<std::string> menuConflict(const Shortcut& shortcut,
                                                      std::span<const MainMenuItem> menu,
                                                      const ShortcutText& text);

/// Whether one of the desktop's enabled shortcuts is the same. F12 alone never is.
[[nodiscard]] bool isTakenBySystem(const Shortcut& shortcut,
                                   std::span<const SymbolicHotKey> systemShortcuts);

} // namespace calmora
