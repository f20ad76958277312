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
/// executables of the other running applications.
[[nodiscard]] std::optional<std::string>
privateFolder(const ProcessDetails& process, const ApplicationIdentity& identity,
              std::string_view home, std::span<const std::string> otherExecutables);

/// The path that is given out as the application's bundle: its private folder, else a path under
/// which no executable can lie. Never empty, always with a closing slash, so that a search for
/// executables by this prefix finds the application's own helpers or nothing. Pure.
[[nodiscard]] std::string bundlePath(const ProcessDetails& process,
                                     const ApplicationIdentity& identity, std::string_view home,
                                     std::span<const std::string> otherExecutables);

} // namespace calmora
