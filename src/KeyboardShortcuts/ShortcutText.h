// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Shortcut.h"

#include <optional>
#include <string>

namespace calmora {

class KeyboardLayout;
class LocalizedStrings;
class Text;

/// Formats shortcuts as text in UTF-8. The arguments must outlive this object.
class ShortcutText {
  public:
    ShortcutText(const KeyboardLayout& layout, const LocalizedStrings& strings, const Text& text)
        : layout_(layout), strings_(strings), text_(text) {}

    /// The textual form, like "⌃⌥⌘K": the modifiers' symbols in their fixed order, then the key.
    /// A key that gives no single character shows as U+FFFD.
    [[nodiscard]] std::string description(const Shortcut& shortcut) const;

    /// The same in words, like "Control+Alt+Super+K", for tooltips and screen readers.
    [[nodiscard]] std::string spokenDescription(const Shortcut& shortcut) const;

    /// The key as a menu's key equivalent: a single character, not capitalized. Absent if it can be
    /// in no menu.
    [[nodiscard]] std::optional<std::string> menuKeyText(const Shortcut& shortcut) const;

  private:
    [[nodiscard]] std::optional<std::string> character(const Shortcut& shortcut) const;
    [[nodiscard]] std::string capitalizedCharacter(const Shortcut& shortcut) const;

    const KeyboardLayout& layout_;
    const LocalizedStrings& strings_;
    const Text& text_;
};

} // namespace calmora
