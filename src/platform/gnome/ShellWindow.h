// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/windows/WindowSystem.h"

#include <cstdint>
#include <string>

namespace calmora {

/// A window as the extension in GNOME's shell tells it. Texts are the client's; empty if unknown.
struct ShellWindow {
    /// The shell's own number, never used twice; 0 for no window.
    std::uint64_t id = 0;
    /// The client's process.
    ProcessId process = 0;
    bool isX11 = false;
    /// What the X server calls it; 0 for Wayland windows and where the shell does not know.
    std::uint32_t x11Id = 0;
    /// MetaWindowType.
    std::uint32_t type = 0;
    bool skipsTaskbar = false;
    bool canClose = false;
    /// Full screen on the workspace that is shown.
    bool isFullScreen = false;
    /// As TopLevelWindow::isStandIn.
    bool isStandIn = false;
    /// The window that it belongs to; 0 for one of its own.
    std::uint64_t parent = 0;
    /// The desktop id that the shell lists the window under.
    std::string desktopId = {};
    /// The application id of a sandboxed client.
    std::string sandboxId = {};
    /// Both parts of WM_CLASS; of Wayland windows `className` is the application id.
    std::string className = {};
    std::string instance = {};
    std::string gtkApplicationId = {};
    std::string gtkBusName = {};
    std::string gtkObjectPath = {};

    friend bool operator==(const ShellWindow&, const ShellWindow&) = default;
};

/// The window without number, parent and owner. One of X11 is never asked by way of the shell,
/// which kills the client of one that cannot be asked.
/// Source: mutter 43 to 48, MetaWindowType.
[[nodiscard]] TopLevelWindow topLevelWindow(const ShellWindow& window);

} // namespace calmora
