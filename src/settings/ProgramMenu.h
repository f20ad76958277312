#pragma once

#include "platform/MainMenu.h"

namespace calmora {

class LocalizedStrings;

/// The program's main menu. It is not drawn, but its keys work in the program's windows, each with
/// Command or with Control.
[[nodiscard]] MainMenu programMenu(const LocalizedStrings& strings);

} // namespace calmora
