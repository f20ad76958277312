// SPDX-License-Identifier: MIT
#include "platform/linux/keyboard/AsciiKeymap.h"

#include <algorithm>
#include <array>
#include <set>

namespace calmora {
namespace {

struct Spacing {
    xkb_keysym_t deadKey;
    const char* text;
};

constexpr std::array spacingForms{
    Spacing{XKB_KEY_dead_grave, "`"},          Spacing{XKB_KEY_dead_acute, "\u00B4"},
    Spacing{XKB_KEY_dead_circumflex, "^"},     Spacing{XKB_KEY_dead_tilde, "~"},
    Spacing{XKB_KEY_dead_diaeresis, "\u00A8"}, Spacing{XKB_KEY_dead_abovering, "\u02DA"},
    Spacing{XKB_KEY_dead_caron, "\u02C7"},     Spacing{XKB_KEY_dead_cedilla, "\u00B8"},
    Spacing{XKB_KEY_dead_macron, "\u00AF"},    Spacing{XKB_KEY_dead_breve, "\u02D8"},
    Spacing{XKB_KEY_dead_abovedot, "\u02D9"},  Spacing{XKB_KEY_dead_doubleacute, "\u02DD"},
    Spacing{XKB_KEY_dead_ogonek, "\u02DB"},
};

/// The only symbol on the level; XKB_KEY_NoSymbol if there are none or several.
xkb_keysym_t symbol(xkb_keymap& keymap, xkb_layout_index_t layout, xkb_keycode_t key,
                    xkb_level_index_t level) {
    const xkb_layout_index_t count = xkb_keymap_num_layouts_for_key(&keymap, key);
    if (count == 0) {
        return XKB_KEY_NoSymbol;
    }
    const xkb_keysym_t* symbols = nullptr;
    const int found =
        xkb_keymap_key_get_syms_by_level(&keymap, key, layout % count, level, &symbols);
    return found == 1 ? symbols[0] : xkb_keysym_t{XKB_KEY_NoSymbol};
}

bool writesAscii(xkb_keymap& keymap, xkb_layout_index_t layout) {
    constexpr std::size_t enoughLetters = 20;
    std::set<xkb_keysym_t> letters;
    for (xkb_keycode_t key = xkb_keymap_min_keycode(&keymap);
         key <= xkb_keymap_max_keycode(&keymap); ++key) {
        const xkb_keysym_t found = symbol(keymap, layout, key, 0);
        if (found >= XKB_KEY_a && found <= XKB_KEY_z) {
            letters.insert(found);
        }
    }
    return letters.size() >= enoughLetters;
}

} // namespace

XkbContext makeXkbContext() {
    XkbContext context(xkb_context_new(XKB_CONTEXT_NO_ENVIRONMENT_NAMES));
    if (context) {
        xkb_context_set_log_fn(context.get(),
                               [](xkb_context*, xkb_log_level, const char*, va_list) {});
    }
    return context;
}

XkbKeymap americanKeymap(xkb_context* context) {
    constexpr xkb_rule_names american{"evdev", "pc105", "us", "", ""};
    return XkbKeymap(
        context ? xkb_keymap_new_from_names(context, &american, XKB_KEYMAP_COMPILE_NO_FLAGS)
                : nullptr);
}

std::optional<xkb_layout_index_t> asciiLayout(xkb_keymap& keymap, xkb_layout_index_t active) {
    const xkb_layout_index_t count = xkb_keymap_num_layouts(&keymap);
    if (active < count && writesAscii(keymap, active)) {
        return active;
    }
    for (xkb_layout_index_t layout = 0; layout < count; ++layout) {
        if (writesAscii(keymap, layout)) {
            return layout;
        }
    }
    return std::nullopt;
}

std::optional<std::string> characterOf(xkb_keymap& keymap, xkb_layout_index_t layout,
                                       X11KeyCode key, xkb_level_index_t level) {
    const xkb_keysym_t found = symbol(keymap, layout, key, level);
    if (const auto* dead = std::ranges::find(spacingForms, found, &Spacing::deadKey);
        dead != spacingForms.end()) {
        return dead->text;
    }
    std::array<char, 16> buffer{};
    const int size = xkb_keysym_to_utf8(found, buffer.data(), buffer.size());
    const bool isControl =
        static_cast<unsigned char>(buffer.front()) < 0x20 || buffer.front() == 0x7F;
    if (size <= 1 || isControl) {
        return std::nullopt;
    }
    return std::string(buffer.data());
}

bool isDead(xkb_keymap& keymap, xkb_layout_index_t layout, X11KeyCode key,
            xkb_level_index_t level) {
    const xkb_keysym_t found = symbol(keymap, layout, key, level);
    return found >= XKB_KEY_dead_grave && found <= XKB_KEY_dead_longsolidusoverlay;
}

} // namespace calmora
