#pragma once

#include "KeyboardShortcuts/Shortcut.h"

#include <optional>
#include <string>
#include <string_view>

namespace calmora {

/// The stored form: a JSON object of two integers, always in the same order, without white space.
[[nodiscard]] std::string encodeShortcut(const Shortcut& shortcut);

/// Reads the stored form with its members in either order. Absent for anything else, whatever its
/// size or depth.
[[nodiscard]] std::optional<Shortcut> decodeShortcut(std::string_view json);

} // namespace calmora
