#include "KeyboardShortcuts/ShortcutConflicts.h"

#include "KeyboardShortcuts/Modifiers.h"
#include "KeyboardShortcuts/ShortcutText.h"

#include <algorithm>

namespace calmora {
namespace {

std::string lowercased(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

bool chooses(const Shortcut& shortcut, const std::string& keyText, const MenuKey& key) {
    std::string equivalent = key.keyEquivalent;
    ModifierFlags mask = key.modifierMask;
    const std::string lower = lowercased(equivalent);
    if (shortcut.modifiers().contains(ModifierFlags::shift) && lower != equivalent) {
        equivalent = lower;
        mask.mask |= ModifierFlags::shift;
    }
    return keyText == equivalent && shortcut.modifiers() == mask;
}

} // namespace

std::optional<std::string> menuConflict(const Shortcut& shortcut,
                                        std::span<const MainMenuItem> menu,
                                        const ShortcutText& text) {
    const auto keyText = text.menuKeyText(shortcut);
    for (const MainMenuItem& item : menu) {
        if (keyText && std::ranges::any_of(item.keys, [&](const MenuKey& key) {
                return chooses(shortcut, *keyText, key);
            })) {
            return item.title;
        }
        if (auto found = menuConflict(shortcut, item.submenu, text)) {
            return found;
        }
    }
    return std::nullopt;
}

bool isTakenBySystem(const Shortcut& shortcut, std::span<const SymbolicHotKey> systemShortcuts) {
    if (shortcut == Shortcut{Key::f12, 0}) {
        return false;
    }
    return std::ranges::any_of(systemShortcuts, [&](const SymbolicHotKey& entry) {
        return entry.isEnabled.value_or(false) && entry.keyCode && entry.modifiers &&
               shortcut == Shortcut{*entry.keyCode, normalizedCarbonModifiers(*entry.modifiers)};
    });
}

} // namespace calmora
