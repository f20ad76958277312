#pragma once

#include "platform/linux/identity/ApplicationFacts.h"
#include "platform/linux/identity/ApplicationIdentity.h"
#include "platform/linux/identity/CgroupNames.h"
#include "platform/linux/xdg/DesktopEntryIndex.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// Which application a process with its windows is; see IdentityRule for the order of the ways.
/// Also answers for a process without windows, from what the process alone tells. Pure.
[[nodiscard]] ApplicationIdentity identify(const ApplicationFacts& facts,
                                           const DesktopEntryIndex& index);

/// Which application a process without windows was started as: by its sandbox, its systemd unit
/// or the program it runs. Absent when no desktop entry says so, or one
/// whose program runs in a terminal: it belongs to the terminal. Pure.
[[nodiscard]] std::optional<ApplicationIdentity> identifyWindowless(const ProcessDetails& process,
                                                                    const DesktopEntryIndex& index);

/// Whether identifyWindowless() may find something by unit or program: from arguments, program and
/// control group alone, which cost little. Pure.
[[nodiscard]] bool mayBeInstalled(const ProcessDetails& process, const DesktopEntryIndex& index);

/// The identifier that is given out for a desktop id: "com.apple.finder" for the application that
/// opens folders, else the well-known one where there is one, else the id itself. An identifier
/// that was stored as a desktop id means this one. Pure.
[[nodiscard]] std::string bundleIdentifierOf(std::string_view desktopId,
                                             const DesktopEntryIndex& index);

} // namespace calmora
