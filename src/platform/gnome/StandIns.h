// SPDX-License-Identifier: MIT
#pragma once

#include "platform/gnome/ShellWindow.h"
#include "platform/wayland/SocketClients.h"

#include <span>
#include <string>
#include <vector>

namespace calmora {

class DesktopEntryIndex;

/// A name on the session bus, the unique name of the connection that owns it, and its process.
struct OwnedName {
    std::string name;
    std::string owner;
    ProcessId process = 0;
};

/// Stand-ins for the windows of a Wayland session that nobody tells of: one for each of the
/// compositor's clients whose program is what a visible desktop entry starts, that was started
/// from one by its control group, as sandboxed applications are, or that owns an entry's id on the
/// bus, as servers of terminals do. They cannot be asked to close. An application that owns its
/// entry's id exports its actions there.
/// Source: GApplication, the object path of an application id.
[[nodiscard]] std::vector<ShellWindow> standIns(std::span<const SocketClient> clients,
                                                const DesktopEntryIndex& index,
                                                std::span<const OwnedName> ownedNames);

} // namespace calmora
