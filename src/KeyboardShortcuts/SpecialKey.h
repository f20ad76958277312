#pragma once

#include "KeyboardShortcuts/Key.h"

#include <string_view>

namespace calmora {

/// A key that has no character of its own and is always shown by a fixed text in UTF-8.
struct SpecialKey {
    Key key;
    /// How it is shown; for the space key the name of a localized text.
    std::string_view text;
    /// Its name in English, which is also the name of the localized text.
    std::string_view spokenName;
    /// Number of a function key, from 1; 0 for any other key.
    int functionNumber = 0;
    bool isKeypad = false;
};

/// The special key with this virtual key code, one of 53; null when there is none.
[[nodiscard]] const SpecialKey* specialKey(Key key);

} // namespace calmora
