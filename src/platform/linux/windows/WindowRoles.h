#pragma once

#include "platform/linux/windows/WindowSystem.h"

#include <cstddef>
#include <span>
#include <vector>

namespace calmora {

/// What one window is to the application that owns it.
struct WindowRole {
    /// It belongs to another window of the application, such as a question about unsaved work.
    bool isTransient = false;
    /// A window that makes its process an application that users switch to. So does a modal
    /// dialog where it is all that the process shows.
    bool isRegular = false;
    /// It would do so if it did not stay out of task bars.
    bool isHidden = false;
    /// A window that a polite quit may ask to close.
    bool mayBeAsked = false;
    /// A panel or a desktop background: part of the desktop, whatever else its process shows.
    bool isShell = false;
};

/// The roles of `windows`, in their order. A window is transient when its parent is among them; or
/// when it names some other parent, or is modal, and its process has a plain window beside it
/// (toolkits name a hidden leader as the parent of dialogs that have none).
[[nodiscard]] std::vector<WindowRole> windowRoles(std::span<const TopLevelWindow> windows);

/// Whether one of `windows` is a regular one of the process.
[[nodiscard]] bool hasRegularWindow(std::span<const TopLevelWindow> windows, ProcessId process);

/// Whether the process may be the owner of one of `windows`, which cannot be told: it must not be
/// signalled then.
[[nodiscard]] bool isOneOfSeveralOwners(std::span<const TopLevelWindow> windows, ProcessId process);

/// The window at the end of the chain of parents that starts at `window`, as far as it is among
/// `windows`; `window` itself where it has no parent.
[[nodiscard]] WindowId topmostParent(std::span<const TopLevelWindow> windows, WindowId window);

} // namespace calmora
