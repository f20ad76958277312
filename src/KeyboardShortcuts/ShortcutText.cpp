// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/ShortcutText.h"

#include "platform/KeyboardLayout.h"
#include "platform/LocalizedStrings.h"
#include "platform/Text.h"

#include <algorithm>

namespace calmora {
namespace {

constexpr const char* replacementCharacter = "\uFFFD";

/// Whether a text in UTF-8 has exactly one code point.
bool isOneCharacter(const std::string& text) {
    return std::ranges::count_if(
               text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }) == 1;
}

/// The private-use character by which menus name function key `number`: U+F704 is F1.
std::string functionKeyCharacter(int number) {
    return {static_cast<char>(0xEF), static_cast<char>(0x9C),
            static_cast<char>(0x80 + 0x04 + number - 1)};
}

} // namespace

std::string ShortcutText::description(const Shortcut& shortcut) const {
    const std::string symbols = ks_symbolicRepresentation(shortcut.modifiers());
    const SpecialKey* special = specialKey(shortcut.key());
    if (!special) {
        return symbols + capitalizedCharacter(shortcut);
    }
    const bool isWord = special->key == Key::space || special->key == Key::contextualMenu;
    return symbols +
           (isWord ? text_.capitalized(strings_.text(special->text)) : std::string(special->text));
}

std::string ShortcutText::spokenDescription(const Shortcut& shortcut) const {
    std::string words;
    for (const ModifierKey& key : modifierKeys) {
        if (shortcut.modifiers().contains(key.eventFlag)) {
            words += strings_.text(key.spokenName) + "+";
        }
    }
    const SpecialKey* special = specialKey(shortcut.key());
    return words + (special ? strings_.text(special->spokenName) : capitalizedCharacter(shortcut));
}

std::optional<std::string> ShortcutText::menuKeyText(const Shortcut& shortcut) const {
    const SpecialKey* special = specialKey(shortcut.key());
    if (!special) {
        return character(shortcut);
    }
    if (special->functionNumber > 0) {
        return functionKeyCharacter(special->functionNumber);
    }
    if (special->isKeypad) {
        return std::nullopt;
    }
    return special->key == Key::space ? " " : std::string(special->text);
}

std::optional<std::string> ShortcutText::character(const Shortcut& shortcut) const {
    auto character = layout_.character(shortcut.carbonKeyCode);
    return character && isOneCharacter(*character) ? character : std::nullopt;
}

std::string ShortcutText::capitalizedCharacter(const Shortcut& shortcut) const {
    return text_.capitalized(character(shortcut).value_or(replacementCharacter));
}

} // namespace calmora
