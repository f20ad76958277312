#include "platform/desktop/shortcuts/DesktopShortcuts.h"

#include "platform/KeyboardLayout.h"
#include "platform/linux/keyboard/AsciiKeymap.h"
#include "platform/linux/keyboard/KeyCodes.h"

#include <QString>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace calmora {
namespace {

constexpr std::int64_t lastVirtualKeyCode = 127;

} // namespace

KeyNames::KeyNames(const KeyboardLayout& layout) : layout_(layout) {
    const XkbContext context = makeXkbContext();
    const XkbKeymap keymap = americanKeymap(context.get());
    for (std::int64_t code = 0; keymap && code <= lastVirtualKeyCode; ++code) {
        const auto key = x11KeyCode(code);
        const xkb_keysym_t* symbols = nullptr;
        if (key && xkb_keymap_key_get_syms_by_level(keymap.get(), *key, 0, 0, &symbols) == 1) {
            american_.emplace(symbols[0], code);
        }
    }
}

std::optional<std::int64_t> KeyNames::keyCode(const std::string& name) const {
    if (name == "Above_Tab") {
        constexpr std::int64_t keyAboveTab = 50; // whatever it writes
        return keyAboveTab;
    }
    xkb_keysym_t symbol = xkb_keysym_from_name(name.c_str(), XKB_KEYSYM_NO_FLAGS);
    if (symbol == XKB_KEY_NoSymbol) {
        symbol = xkb_keysym_from_name(name.c_str(), XKB_KEYSYM_CASE_INSENSITIVE);
    }
    if (symbol == XKB_KEY_NoSymbol) {
        return std::nullopt;
    }
    symbol = xkb_keysym_to_lower(symbol);
    std::array<char, 16> character{};
    xkb_keysym_to_utf8(symbol, character.data(), character.size());
    // Keypad keys write signs, too, but are other keys.
    const bool isSign = character.front() > ' ' && !name.starts_with("KP_");
    for (std::int64_t code = 0; isSign && code <= lastVirtualKeyCode; ++code) {
        if (layout_.character(code) == character.data()) {
            return code;
        }
    }
    const auto found = american_.find(symbol);
    return found != american_.end() ? std::optional(found->second) : std::nullopt;
}

std::string KeyNames::name(std::int64_t keyCode) const {
    std::array<char, 64> name{};
    const auto american =
        std::ranges::find(american_, keyCode, [](const auto& entry) { return entry.second; });
    if (american != american_.end()) {
        xkb_keysym_get_name(american->first, name.data(), name.size());
    }
    const std::string_view usual = name.data();
    const std::u32string character =
        QString::fromStdString(layout_.character(keyCode).value_or("")).toStdU32String();
    if (character.size() == 1 && character.front() > U' ' && !usual.starts_with("KP_")) {
        xkb_keysym_get_name(xkb_utf32_to_keysym(character.front()), name.data(), name.size());
    }
    return name.data();
}

DesktopShortcuts::DesktopShortcuts(const KeyboardLayout& layout, std::vector<Source> sources)
    : layout_(layout), sources_(std::move(sources)) {}

std::vector<SymbolicHotKey> DesktopShortcuts::copySymbolicHotKeys() {
    const KeyNames names(layout_);
    std::vector<SymbolicHotKey> result;
    for (const Source& source : sources_) {
        for (const Accelerator& accelerator : source()) {
            result.push_back({true, names.keyCode(accelerator.key),
                              static_cast<std::int64_t>(accelerator.modifiers)});
        }
    }
    return result;
}

} // namespace calmora
