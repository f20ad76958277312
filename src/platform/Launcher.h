// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace calmora {

/// Starts installed applications as the desktop's own menu would. What it starts is no child of
/// this program and outlives it.
class Launcher {
  public:
    virtual ~Launcher() = default;

    /// Whether launch() has something to start: the application with this desktop file id (without
    /// ".desktop") is installed and needs no terminal.
    [[nodiscard]] virtual bool canLaunch(const std::string& desktopId) = 0;

    /// Starts an application, once. False if that fails at once; what goes wrong later is not told.
    /// Blocks for a few milliseconds; once for a second where the service that groups programs
    /// hangs.
    virtual bool launch(const std::string& desktopId) = 0;
};

} // namespace calmora
