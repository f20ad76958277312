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

} // namespace calmora
