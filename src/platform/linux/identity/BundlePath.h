// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/identity/ApplicationIdentity.h"
#include "platform/linux/proc/ProcessDetails.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace calmora {

/// The folder, with a trailing slash, that holds only this application's executables; absent if
/// none, as for everything in /usr/bin. Pure. `home` is the user's home folder, empty if unknown.
/// `otherExecutables` are the executables of other running applications; one may be this one's.
[[nodiscard]] std::optional<std::string>
privateFolder(const ProcessDetails& process, const ApplicationIdentity& identity,
              std::string_view home, std::span<const std::string> otherExecutables);

/// The application's bundle path: its private folder, else a path that contains no executables.
/// Never empty and with a trailing slash, so that a search for executables with this prefix finds
/// only the application's own helpers. Pure.
[[nodiscard]] std::string bundlePath(const ProcessDetails& process,
                                     const ApplicationIdentity& identity, std::string_view home,
                                     std::span<const std::string> otherExecutables);

/// Whether an executable is not part of the application with this private folder: it is outside, or
/// in a library of programs that the application installed (steamapps/common/GAME, apps/NAME,
/// Games/NAME …). Pure.
[[nodiscard]] bool belongsToAnotherProgram(std::string_view privateFolder,
                                           std::string_view executable);

} // namespace calmora
