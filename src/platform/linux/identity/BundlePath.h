#pragma once

#include "platform/linux/identity/ApplicationIdentity.h"
#include "platform/linux/proc/ProcessDetails.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace calmora {

/// The folder, with a closing slash, that holds this application's executables and nobody
/// else's. Absent where there is none, which is so for everything in /usr/bin. Pure.
/// `home` is the user's home folder, empty when it is not known. `otherExecutables` are the
/// executables of the running applications of other identities; one of them may be this one's own.
[[nodiscard]] std::optional<std::string>
privateFolder(const ProcessDetails& process, const ApplicationIdentity& identity,
              std::string_view home, std::span<const std::string> otherExecutables);

/// The path that is given out as the application's bundle: its private folder, else a path under
/// which no executable can lie. Never empty, always with a closing slash, so that a search for
/// executables by this prefix finds the application's own helpers or nothing. Pure.
[[nodiscard]] std::string bundlePath(const ProcessDetails& process,
                                     const ApplicationIdentity& identity, std::string_view home,
                                     std::span<const std::string> otherExecutables);

/// Whether an executable is not part of the application that a private folder belongs to: it lies
/// outside of it, or in a library of programs below it that the application installed
/// (steamapps/common/GAME, apps/NAME, Games/NAME …). Pure.
[[nodiscard]] bool belongsToAnotherProgram(std::string_view privateFolder,
                                           std::string_view executable);

} // namespace calmora
