// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/DesktopShortcuts.h"

#include "platform/KeyboardLayout.h"
#include "platform/linux/keyboard/AsciiKeymap.h"
#include "platform/linux/keyboard/KeyCodes.h"

#include <QString>

#include <algorithm>
#include <array>
#include <utility>

namespace calmora {
namespace {

constexpr std::int64_t lastVirtualKeyCode = 127;

std::string symbolName(xkb_keysym_t symbol) {
    std::array<char, 64> name{};
    xkb_keysym_get_name(symbol, name.data(), name.size());
    return name.data();
}

/// The only character of a text in UTF-8; zero if there is none, or more than one.
char32_t onlyCharacter(const std::optional<std::string>& text) {
    const std::u32string characters = QString::fromStdString(text.value_or("")).toStdU32String();
    return characters.size() == 1 ? characters.front() : U'\0';
}

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
    const auto american =
        std::ranges::find(american_, keyCode, [](const auto& entry) { return entry.second; });
    std::string usual = american != american_.end() ? symbolName(american->first) : std::string();
    const char32_t written = onlyCharacter(layout_.character(keyCode));
    const bool isOnKeypad = usual.starts_with("KP_");
    return written > U' ' && !isOnKeypad ? symbolName(xkb_utf32_to_keysym(written)) : usual;
}

std::string KeyNames::shiftedSign(std::int64_t keyCode) const {
    const char32_t written = onlyCharacter(layout_.shiftedCharacter(keyCode));
    return written > U' ' && !QChar::isLetter(written) ? symbolName(xkb_utf32_to_keysym(written))
                                                       : std::string();
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
