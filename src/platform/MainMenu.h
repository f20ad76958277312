// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"

#include <string>
#include <vector>

namespace calmora {

/// A key that chooses a menu item: the character as the key writes it, with the modifiers to hold.
/// An upper-case letter means Shift.
struct MenuKey {
    std::string keyEquivalent;
    ModifierFlags modifierMask{ModifierFlags::command};
};

/// An item of the program's menu. One with a submenu chooses nothing by itself.
struct MainMenuItem {
    std::string title;
    /// Every form in which its key may be pressed.
    std::vector<MenuKey> keys;
    std::vector<MainMenuItem> submenu;
};

/// The program's menu, whose keys work in its windows whether it is drawn or not.
using MainMenu = std::vector<MainMenuItem>;

} // namespace calmora
