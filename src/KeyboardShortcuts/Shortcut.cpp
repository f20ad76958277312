#include "KeyboardShortcuts/Shortcut.h"

#include "KeyboardShortcuts/Modifiers.h"

namespace calmora {

std::optional<Shortcut> Shortcut::fromEvent(const InputEvent& event) {
    if (event.type != InputEventType::keyDown && event.type != InputEventType::keyUp) {
        return std::nullopt;
    }
    return of(Key{event.keyCode}, {event.modifiers.mask & ~ModifierFlags::function});
}

Shortcut Shortcut::of(Key key, ModifierFlags modifiers) {
    return {key.rawValue, calmora::carbonModifiers(modifiers)};
}

ModifierFlags Shortcut::modifiers() const {
    return modifierFlags(carbonModifiers);
}

} // namespace calmora
