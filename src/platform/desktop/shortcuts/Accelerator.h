// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// A key combination as a desktop's settings write it.
struct Accelerator {
    /// Carbon modifier mask.
    std::uint32_t modifiers = 0;
    /// X keysym name, such as "t", "F4", "Left" or "U00E4"; or "Above_Tab".
    std::string key;

    friend bool operator==(const Accelerator&, const Accelerator&) = default;
};

/// Reads "<Primary><Alt>t". Absent when it is empty, broken, or has a modifier that no shortcut
/// of ours can have.
/// Source: gtk_accelerator_parse().
[[nodiscard]] std::optional<Accelerator> gtkAccelerator(std::string_view text);

/// Reads "C-A-Left".
/// Source: openbox.org/wiki/Help:Bindings.
[[nodiscard]] std::optional<Accelerator> openboxAccelerator(std::string_view text);

/// The combinations bound in an openbox configuration; of a chain, the first. Invalid ones are
/// skipped. Empty for a text over a mebibyte and where hasShortTags() is false.
[[nodiscard]] std::vector<Accelerator> openboxAccelerators(std::string_view xml);

/// Reads a key of Qt with its modifiers, as KDE keeps them: 0x10000041 is Super with A. Absent when
/// it is invalid, or has a modifier that no shortcut of ours can have.
/// Source: Qt::Key and Qt::KeyboardModifier.
[[nodiscard]] std::optional<Accelerator> qtAccelerator(std::uint32_t key);

/// The key of Qt with its modifiers: the reverse of qtAccelerator(). Absent for keys of the keypad
/// and for a name that is no key of Qt's.
[[nodiscard]] std::optional<std::uint32_t> qtKey(const Accelerator& accelerator);

/// A property of xfconf's channel "xfce4-keyboard-shortcuts".
struct XfceProperty {
    /// The path, whose last part is the combination: "/commands/custom/<Primary><Alt>t".
    std::string name;
    /// The value where it is a Boolean.
    std::optional<bool> flag;
};

/// The combinations of Xfce's window manager and commands: the defaults, unless the user has a list
/// of their own.
[[nodiscard]] std::vector<Accelerator>
xfceAccelerators(const std::vector<XfceProperty>& properties);

} // namespace calmora
