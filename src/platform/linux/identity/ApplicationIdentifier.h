// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/identity/ApplicationIdentity.h"
#include "platform/linux/proc/ProcFiles.h"
#include "platform/linux/xdg/DesktopEntryIndex.h"

#include <optional>
#include <string>
#include <string_view>

namespace calmora {

/// Identifies the application of a process and its windows, or of a process without windows;
/// IdentityRule lists the rules in order. Pure.
[[nodiscard]] ApplicationIdentity identify(const ApplicationFacts& facts,
                                           const DesktopEntryIndex& index);

/// Identifies a process without windows by its sandbox, systemd unit or program. Absent without a
/// desktop entry, or with one for a terminal program, which belongs to the terminal. Pure.
[[nodiscard]] std::optional<ApplicationIdentity> identifyWindowless(const ProcessDetails& process,
                                                                    const DesktopEntryIndex& index);

/// Whether identifyWindowless() may find something by unit or program. Needs arguments, program and
/// control group only, which are cheap to read. Pure.
[[nodiscard]] bool mayBeInstalled(const ProcessDetails& process, const DesktopEntryIndex& index);

/// The public identifier of a desktop id: "com.apple.finder" for the application that opens
/// folders, else the well-known one if any, else the id itself. Stored desktop ids are mapped the
/// same way. Pure.
[[nodiscard]] std::string bundleIdentifierOf(std::string_view desktopId,
                                             const DesktopEntryIndex& index);

} // namespace calmora
