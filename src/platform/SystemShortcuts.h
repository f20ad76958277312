// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace calmora {

/// One shortcut of the desktop; parts that the desktop does not report are absent.
struct SymbolicHotKey {
    std::optional<bool> isEnabled;
    /// Virtual key code.
    std::optional<std::int64_t> keyCode;
    /// Carbon modifier mask.
    std::optional<std::int64_t> modifiers;

    friend bool operator==(const SymbolicHotKey&, const SymbolicHotKey&) = default;
};

/// The desktop's own shortcuts.
class SystemShortcuts {
  public:
    virtual ~SystemShortcuts() = default;

    /// The current shortcuts; empty if they cannot be read. Takes some milliseconds, at most half a
    /// second.
    [[nodiscard]] virtual std::vector<SymbolicHotKey> copySymbolicHotKeys() = 0;
};

} // namespace calmora
