// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopExtension.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// Every extension of ours: before GNOME 45, and since.
inline constexpr std::array<const char*, 2> ownExtensions{"calmora@calmora.app",
                                                          "calmora-45@calmora.app"};

/// The extension for a version of GNOME's shell, such as "43.9": it has one folder for each of the
/// two ways in which shells load extensions. Empty for a text that is no version, and for shells
/// that load neither.  Source: GNOME 45, which loads ECMAScript modules.
[[nodiscard]] std::string extensionFor(std::string_view shellVersion);

/// What the user has said to the offer.
enum class ExtensionAnswer {
    none,
    /// No, or yes and it was done: the shell's own settings count from then on.
    settled,
    /// Yes, but the shell does not know the extension before the next login.
    awaitsLogin,
};

/// What is known of the extension and the shell.
struct ExtensionFacts {
    bool isAttached = false;
    std::string shellVersion = {};
    /// The extension lies where shells look.
    bool isInstalled = false;
    /// The shell has found it there.
    bool isKnown = false;
    /// User extensions are not switched off, and no policy fixes which are enabled.
    bool mayEnable = true;
    /// The user's lists of extensions.
    std::vector<std::string> enabled = {};
    std::vector<std::string> disabled = {};
    ExtensionAnswer answer = ExtensionAnswer::none;
};

/// What is to be done.
struct ExtensionVerdict {
    DesktopExtension::State state = DesktopExtension::State::none;
    /// Enable it now without a question: the user has said yes before, to this extension or, before
    /// an upgrade of the desktop, to the one in the other folder.
    bool enablesNow = false;

    friend bool operator==(const ExtensionVerdict&, const ExtensionVerdict&) = default;
};

[[nodiscard]] ExtensionVerdict extensionVerdict(const ExtensionFacts& facts);

} // namespace calmora
