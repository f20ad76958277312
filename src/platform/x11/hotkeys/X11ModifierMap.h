// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/hotkeys/X11Modifiers.h"

namespace calmora {

class X11Connection;

/// The modifiers as the server maps them.
struct X11ModifierMap {
    /// The keys that set each bit.
    X11ModifierKeys keys;
    X11Modifiers modifiers;
};

/// Reads the map that is in force. One round trip; empty without a server.
[[nodiscard]] X11ModifierMap readModifierMap(const X11Connection& server);

} // namespace calmora
