#pragma once

#include "platform/MainMenu.h"

namespace calmora {

class LocalizedStrings;

/// The program's main menu. Nothing draws it, but its windows answer to its keys, each of which
/// may be pressed with Command or with Control.
[[nodiscard]] MainMenu programMenu(const LocalizedStrings& strings);

} // namespace calmora
