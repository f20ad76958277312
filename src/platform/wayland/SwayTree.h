// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/windows/WindowSystem.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace calmora {

/// A container of sway with a window in it. Ids are never used twice.
struct SwayView {
    WindowId id = 0;
    /// The process at the other end of the Wayland connection; for an X11 window what it claims.
    /// 0 when sway gives none.
    ProcessId process = 0;
    bool isFloating = false;
    bool hasFocus = false;
    /// Fills its workspace, or all outputs, and is seen.
    bool isFullScreen = false;
    /// Absent for a Wayland window.
    std::optional<std::uint32_t> x11Id = {};
    /// Of Wayland windows. Cut at 1024 bytes, as the next two are.
    std::string applicationId = {};
    /// Of X11 windows.
    std::string instance = {};
    std::string className = {};

    friend bool operator==(const SwayView&, const SwayView&) = default;
};

/// The views in a reply to GET_TREE, oldest first, those in the scratchpad included. Absent when
/// the text is no such reply.  Source: sway-ipc(7).
[[nodiscard]] std::optional<std::vector<SwayView>> parseSwayTree(std::string_view text);

/// What an event of sway means for the list of windows.
enum class SwayChange { none, windows, focus };

/// The meaning of a window event; `none` also for what cannot be read.
/// Source: sway-ipc(7), event WINDOW.
[[nodiscard]] SwayChange parseSwayWindowEvent(std::string_view text);

/// Whether the reply to a RUN_COMMAND says that all its commands succeeded.
[[nodiscard]] bool parseSwaySuccess(std::string_view text);

/// The container that a view is a dialog of; 0 for a window of its own. sway names no parents, and
/// what the user floats is no dialog, so one has to float, to have an older sibling of the same
/// process, and to be newer than `newestAsked`, the newest container when that process was last
/// asked to close something. 0 means that it has not been asked.
[[nodiscard]] WindowId swayDialogParent(const SwayView& view, std::span<const SwayView> views,
                                        WindowId newestAsked);

} // namespace calmora
