#include "platform/linux/desktop_shortcuts/DesktopShortcuts.h"

#include "platform/KeyboardLayout.h"
#include "platform/linux/hotkeys/AsciiKeymap.h"
#include "platform/linux/hotkeys/KeyCodes.h"
#include "platform/linux/x11/X11Connection.h"

#include <array>
#include <fstream>
#include <iterator>
#include <utility>

namespace calmora {
namespace {

constexpr std::int64_t lastVirtualKeyCode = 127;

} // namespace

KeyNames::KeyNames(const KeyboardLayout& layout) : layout_(layout) {
    const XkbContext context = makeXkbContext();
    constexpr xkb_rule_names american{"evdev", "pc105", "us", "", ""};
    const XkbKeymap keymap(
        context ? xkb_keymap_new_from_names(context.get(), &american, XKB_KEYMAP_COMPILE_NO_FLAGS)
                : nullptr);
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

std::string windowManagerName(const X11Connection& connection) {
    if (!connection.isAlive()) {
        return {};
    }
    xcb_connection_t* c = connection.get();
    constexpr std::string_view nameAtom = "_NET_WM_NAME";
    const auto atomCookie = xcb_intern_atom(c, 0, nameAtom.size(), nameAtom.data());
    const X11Reply<xcb_get_property_reply_t> check(xcb_get_property_reply(
        c,
        connection.requestProperty(connection.root(),
                                   connection.atom(X11Atom::netSupportingWmCheck), 1),
        nullptr));
    const X11Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(c, atomCookie, nullptr));
    if (!atom || words(check).empty()) {
        return {};
    }
    constexpr std::uint32_t longest = 64;
    const X11Reply<xcb_get_property_reply_t> name(xcb_get_property_reply(
        c, connection.requestProperty(words(check).front(), atom->atom, longest), nullptr));
    return text(name);
}

DesktopShortcuts::Source openboxShortcuts(const X11Connection& connection,
                                          std::vector<std::filesystem::path> files) {
    return [&connection, files = std::move(files)]() -> std::vector<Accelerator> {
        if (windowManagerName(connection) != "Openbox") {
            return {};
        }
        for (const std::filesystem::path& path : files) {
            std::ifstream file(path);
            if (file) {
                return openboxAccelerators(std::string(std::istreambuf_iterator<char>(file), {}));
            }
        }
        return {};
    };
}

} // namespace calmora
