// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/windows/WindowSystem.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// A window of KWin.
struct KwinWindow {
    /// KWin's own, never used twice.
    std::string id = {};
    /// The id of the window that it is a dialog of; empty for a window of its own.
    std::string parent = {};
    /// The process at the other end of the Wayland connection; 0 for X11 windows.
    ProcessId process = 0;
    /// The rest of what is known; without numbers and owner.
    TopLevelWindow window = {};

    friend bool operator==(const KwinWindow&, const KwinWindow&) = default;
};

/// What our script tells from within KWin; see kwin/windows.js.
struct KwinReport {
    /// The number that the script was started with.
    std::uint64_t run = 0;
    /// It has asked the window to close that it was started for.
    bool hasAsked = false;
    /// It ends Wayland clients that do not answer a request to close in time.
    bool endsSlowClients = false;
    /// The window with the keyboard focus; empty if none.
    std::string active = {};
    /// Oldest first.
    std::vector<KwinWindow> windows = {};

    friend bool operator==(const KwinReport&, const KwinReport&) = default;
};

/// Absent when the text is no report. Windows without an id are left out, and what lies beyond the
/// first 4096.
///
/// An X11 window has its X id where KWin tells it (5.27). Elsewhere `mayBeX11` leaves it to the
/// class to say which one it is.
[[nodiscard]] std::optional<KwinReport> parseKwinReport(std::string_view text);

} // namespace calmora
