// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/catalogue/KnownApps.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace calmora {

/// Linux applications of one kind that auto-quit treats alike.
struct AnnexSubject {
    IdleBehavior behavior;
    /// Names of desktop files without ".desktop", as words; or what stands for one, such as
    /// "exe:/usr/bin/Eterm.Eterm".
    std::string_view identifiers;
};

/// Every subject. No identifier is listed twice, and none that the catalogue knows.
[[nodiscard]] std::span<const AnnexSubject> annexSubjects();

/// How auto-quit treats a Linux application that is not in the catalogue, judged one by one by
/// what is lost when it is closed after half an hour. Identifiers are compared exactly. Absent for
/// what is not listed.
/// Cost: reads some 25 kB of text.
[[nodiscard]] std::optional<IdleBehavior> annexBehavior(std::string_view identifier);

/// How auto-quit treats an application by the Categories of its desktop entry, the strictest of
/// them deciding. Where a category says too little, the safer behavior is taken. An entry without
/// categories is safe to quit.
/// Source: freedesktop Desktop Menu Specification, the registered categories.
[[nodiscard]] IdleBehavior behaviorOfCategories(std::span<const std::string> categories);

/// Whether a desktop entry with these categories is that of a terminal.
[[nodiscard]] bool isTerminal(std::span<const std::string> categories);

/// Whether the setting neverQuitMusicApps is about this application: one of the catalogue's list
/// of music players, or a desktop id of a Linux one. Letter case counts.
[[nodiscard]] bool isMusicPlayer(std::string_view identifier);

} // namespace calmora
