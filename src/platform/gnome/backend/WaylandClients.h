// SPDX-License-Identifier: MIT
#pragma once

#include "platform/gnome/ShellWindow.h"
#include "platform/gnome/StandIns.h"
#include "platform/linux/proc/ProcessReader.h"

#include <QDBusConnection>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace calmora {

class DesktopEntryIndex;

/// The stand-ins for the windows of the Wayland session, see standIns().
class WaylandClients {
  public:
    /// The compositor listens at `socket`. `installed` returns the installed applications; it is
    /// called by read(), not before.
    WaylandClients(QDBusConnection connection, std::string socket,
                   std::function<const DesktopEntryIndex&()> installed);

    /// Reads them anew if that was seconds ago, or if `isAfresh`: 3 to 50 ms.
    const std::vector<ShellWindow>& read(bool isAfresh);

  private:
    /// The names on the bus that are ids of visible entries.
    [[nodiscard]] std::vector<OwnedName> ownedNames() const;

    QDBusConnection connection_;
    std::string socket_;
    std::function<const DesktopEntryIndex&()> installed_;
    ProcessReader reader_;
    std::optional<std::chrono::steady_clock::time_point> readAt_;
    std::vector<ShellWindow> standIns_;
};

} // namespace calmora
