#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace calmora {

/// One shortcut of the desktop, as far as the desktop tells.
struct SymbolicHotKey {
    std::optional<bool> isEnabled;
    /// Virtual key code.
    std::optional<std::int64_t> keyCode;
    /// Carbon modifier mask.
    std::optional<std::int64_t> modifiers;

    friend bool operator==(const SymbolicHotKey&, const SymbolicHotKey&) = default;
};

/// The shortcuts that the desktop keeps for itself.
class SystemShortcuts {
  public:
    virtual ~SystemShortcuts() = default;

    /// All of them as they are set now; empty when they cannot be read. May take some
    /// milliseconds, never more than half a second.
    [[nodiscard]] virtual std::vector<SymbolicHotKey> copySymbolicHotKeys() = 0;
};

} // namespace calmora
