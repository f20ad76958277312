#pragma once

namespace calmora {

/// The raw names of the program's three shortcuts. None has a default.
struct ProgramShortcuts {
    static constexpr const char* activateMenu = "activateMenu";
    static constexpr const char* quitAll = "quitAll";
    static constexpr const char* forceQuitAll = "forceQuitAll";
};

} // namespace calmora
