// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SystemShortcuts.h"
#include "platform/desktop/shortcuts/Accelerator.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

class KeyboardLayout;

/// Keys and their X keysym names.
class KeyNames {
  public:
    /// `layout` must outlive this object.
    explicit KeyNames(const KeyboardLayout& layout);

    /// The virtual key code that a keysym name means: for a letter or sign the key that writes it
    /// now, else the key of that name. Absent when there is none.
    [[nodiscard]] std::optional<std::int64_t> keyCode(const std::string& name) const;

    /// The keysym name of a key without modifiers: of what it writes now, else of the key of a US
    /// keyboard, as for the keypad. Empty when there is none.
    [[nodiscard]] std::string name(std::int64_t keyCode) const;

    /// The keysym name of what a key writes with Shift, where that is no letter; else empty.
    [[nodiscard]] std::string shiftedSign(std::int64_t keyCode) const;

  private:
    const KeyboardLayout& layout_;
    /// The keys of a US keyboard: keysym and virtual key code.
    std::map<std::uint32_t, std::int64_t> american_;
};

/// The shortcuts in the desktop's settings.
class DesktopShortcuts final : public SystemShortcuts {
  public:
    /// Gives what one program has bound now; empty while it does not run.
    using Source = std::function<std::vector<Accelerator>()>;

    /// `layout` must outlive this object.
    DesktopShortcuts(const KeyboardLayout& layout, std::vector<Source> sources);

    [[nodiscard]] std::vector<SymbolicHotKey> copySymbolicHotKeys() override;

  private:
    const KeyboardLayout& layout_;
    std::vector<Source> sources_;
};

} // namespace calmora
