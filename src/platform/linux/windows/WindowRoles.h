// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/windows/WindowSystem.h"

#include <optional>
#include <span>
#include <vector>

namespace calmora {

/// The role of a window in its application.
struct WindowRole {
    /// Belongs to another window of the application, such as a question about unsaved work.
    bool isTransient = false;
    /// Makes its process an application that users switch to. A modal dialog does so if it is the
    /// only window.
    bool isRegular = false;
    /// Would be regular but stays out of task bars.
    bool isHidden = false;
    /// May be asked to close by a polite quit.
    bool mayBeAsked = false;
    /// A panel or desktop background: part of the desktop, whatever else its process shows.
    bool isShell = false;
};

/// The roles of `windows`, in their order. A window is transient if its parent is among them; or if
/// it names another parent, or is modal, and its process has a plain window too (toolkits name a
/// hidden leader as the parent of dialogs without one).
[[nodiscard]] std::vector<WindowRole> windowRoles(std::span<const TopLevelWindow> windows);

/// Whether the process has, or may have, a regular window among `windows`.
[[nodiscard]] bool hasRegularWindow(std::span<const TopLevelWindow> windows, ProcessId process);

/// Whether the process is one of several possible owners of a window: it must not be signalled
/// then.
[[nodiscard]] bool isOneOfSeveralOwners(std::span<const TopLevelWindow> windows, ProcessId process);

/// A modal dialog that `process` shows beside a window of its own; absent for none, and where the
/// window system does not tell what is modal.
[[nodiscard]] std::optional<WindowId> modalDialog(std::span<const TopLevelWindow> windows,
                                                  ProcessId process);

/// The last parent of `window` among `windows`; `window` itself without a parent.
[[nodiscard]] WindowId topmostParent(std::span<const TopLevelWindow> windows, WindowId window);

} // namespace calmora
