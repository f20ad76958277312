// SPDX-License-Identifier: MIT
#pragma once

#include "platform/gnome/ShellWindow.h"
#include "platform/wayland/SocketClients.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace calmora {

class DesktopEntryIndex;

/// The unique name on the session bus under which a process owns `name`; empty if it does not.
using OwnedName = std::function<std::string(const std::string& name, ProcessId process)>;

/// Stand-ins for the windows of a Wayland session that nobody tells of: one for each of the
/// compositor's clients whose program is what a visible desktop entry starts. They cannot be asked
/// to close. An application that owns its entry's id on the bus exports its actions there.
/// Source: GApplication, the object path of an application id.
[[nodiscard]] std::vector<ShellWindow> standIns(std::span<const SocketClient> clients,
                                                const DesktopEntryIndex& index,
                                                const OwnedName& ownedName);

} // namespace calmora
