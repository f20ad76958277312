// SPDX-License-Identifier: MIT
#include "platform/x11/hotkeys/X11Modifiers.h"

#include <algorithm>
#include <cstddef>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace calmora {
namespace {

struct Pair {
    std::uint32_t carbon;
    X11ModifierMask mask;
};

std::array<Pair, 4> pairs(const X11Modifiers& modifiers) {
    return {{{carbon::control, X11Modifiers::control},
             {carbon::option, modifiers.option},
             {carbon::shift, X11Modifiers::shift},
             {carbon::command, modifiers.command}}};
}

} // namespace

std::optional<X11ModifierMask> X11Modifiers::fromCarbon(std::uint32_t carbon) const {
    X11ModifierMask result = 0;
    for (const Pair& pair : pairs(*this)) {
        if ((carbon & pair.carbon) == 0) {
            continue;
        }
        if (pair.mask == 0) {
            return std::nullopt;
        }
        result |= pair.mask;
        carbon &= ~pair.carbon;
    }
    return carbon == 0 ? std::optional(result) : std::nullopt;
}

std::uint32_t X11Modifiers::toCarbon(X11ModifierMask mask) const {
    std::uint32_t result = 0;
    for (const Pair& pair : pairs(*this)) {
        result |= (mask & pair.mask) != 0 ? pair.carbon : 0;
    }
    return result;
}

X11ModifierMask X11Modifiers::withoutLocks(X11ModifierMask mask) const {
    constexpr unsigned allModifiers = 0xFF;
    return static_cast<X11ModifierMask>(mask & allModifiers & ~(lock | numLock | scrollLock));
}

std::vector<X11ModifierMask> X11Modifiers::lockVariants() const {
    std::vector<X11ModifierMask> variants{0};
    for (const X11ModifierMask bit : {lock, numLock, scrollLock}) {
        if (std::ranges::find(variants, bit) != variants.end()) {
            continue; // not mapped, or on the bit of another lock
        }
        const std::size_t count = variants.size();
        for (std::size_t i = 0; i < count; ++i) {
            variants.push_back(static_cast<X11ModifierMask>(variants.at(i) | bit));
        }
    }
    return variants;
}

X11ModifierMask heldModifiers(const X11ModifierKeys& keys, const std::set<X11KeyCode>& down) {
    unsigned mask = 0;
    for (std::size_t bit = 0; bit < keys.size(); ++bit) {
        const auto isDown = [&](X11KeyCode key) { return down.contains(key); };
        mask |= std::ranges::any_of(keys.at(bit), isDown) ? 1U << bit : 0U;
    }
    return static_cast<X11ModifierMask>(mask);
}

X11Modifiers x11Modifiers(const X11ModifierKeys& keys,
                          const std::function<std::vector<std::uint32_t>(X11KeyCode)>& keysyms) {
    X11Modifiers result;
    const auto note = [](X11ModifierMask& mask, bool carries, std::size_t bit) {
        if (carries && mask == 0) {
            mask = static_cast<X11ModifierMask>(1U << bit);
        }
    };
    constexpr std::size_t mod1 = 3;
    for (std::size_t bit = mod1; bit < keys.size(); ++bit) {
        for (const X11KeyCode key : keys.at(bit)) {
            const std::vector<std::uint32_t> symbols = keysyms(key);
            const auto carries = [&](std::uint32_t symbol) {
                return std::ranges::find(symbols, symbol) != symbols.end();
            };
            note(result.option, carries(XKB_KEY_Alt_L), bit);
            note(result.command, carries(XKB_KEY_Super_L), bit);
            note(result.numLock, carries(XKB_KEY_Num_Lock), bit);
            note(result.scrollLock, carries(XKB_KEY_Scroll_Lock), bit);
        }
    }
    return result;
}

} // namespace calmora
