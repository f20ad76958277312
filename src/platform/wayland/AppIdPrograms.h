// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

class DesktopEntryIndex;

/// The names, in lower case, of programs whose windows have an application id.
using ProgramNames = std::function<std::vector<std::string>(const std::string& applicationId)>;

/// What the program may be called whose windows have this application id, in lower case: as the
/// id, as its last part, or as what the desktop entries start that have the id, that end in it or
/// that name it as StartupWMClass.
[[nodiscard]] std::vector<std::string> programsOfAppId(std::string_view applicationId,
                                                       const DesktopEntryIndex& index);

} // namespace calmora
