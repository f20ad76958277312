#pragma once

#include "KeyboardShortcuts/Shortcut.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace calmora {

/// The name under which a shortcut is stored. Equal and hashed by `rawValue` alone. Made by
/// KeyboardShortcuts::name(), which also stores the default.
struct ShortcutName {
    /// Unique within the program.
    std::string rawValue;
    /// The shortcut that the name gets the first time.
    std::optional<Shortcut> defaultShortcut;

    friend bool operator==(const ShortcutName& a, const ShortcutName& b) {
        return a.rawValue == b.rawValue;
    }

    friend auto operator<=>(const ShortcutName& a, const ShortcutName& b) {
        return a.rawValue <=> b.rawValue;
    }
};

} // namespace calmora

template <>
struct std::hash<calmora::ShortcutName> {
    std::size_t operator()(const calmora::ShortcutName& name) const noexcept {
        return std::hash<std::string>{}(name.rawValue);
    }
};
