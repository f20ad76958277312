// SPDX-License-Identifier: MIT
#pragma once

#include "platform/MainMenu.h"

namespace calmora {

class LocalizedStrings;

/// The program's main menu. It is not drawn, but its keys work in the program's windows, each with
/// Command or with Control.
[[nodiscard]] MainMenu programMenu(const LocalizedStrings& strings);

/// The raw names of the program's three shortcuts. None has a default.
struct ProgramShortcuts {
    static constexpr const char* activateMenu = "activateMenu";
    static constexpr const char* quitAll = "quitAll";
    static constexpr const char* forceQuitAll = "forceQuitAll";
};

/// One of the program's shortcuts.
struct ProgramShortcut {
    const char* name;
    /// What it does, as a key of LocalizedStrings.
    const char* description;
    /// The same with a colon, for the settings.
    const char* label;
    /// The option of the program that does the same.
    const char* option;
};

inline constexpr ProgramShortcut programShortcuts[] = {
    {ProgramShortcuts::activateMenu, "Show/Hide Calmora", "Show/Hide Calmora:", "--toggle"},
    {ProgramShortcuts::quitAll, "Quit All", "Quit all:", "--quit-all"},
    {ProgramShortcuts::forceQuitAll, "Force Quit All", "Force quit all:", "--force-quit-all"},
};

} // namespace calmora
