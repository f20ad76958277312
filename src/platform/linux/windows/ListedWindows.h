// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "platform/linux/windows/OwnerProcess.h"
#include "platform/linux/windows/WindowSystem.h"
#include "support/Signal.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace calmora {

/// The windows of one window system as they were last read, and who wants to know of changes.
class ListedWindows {
  public:
    /// `notifyLater` is called when there is something to tell, and has notify() called from the
    /// main loop: nobody is notified from within a call of theirs. `onListeningChanged` is as in
    /// Signal, for listeners of either kind.
    explicit ListedWindows(std::function<void()> notifyLater,
                           const std::function<void(bool)>& onListeningChanged = nullptr);

    [[nodiscard]] const std::vector<TopLevelWindow>& windows() const { return windows_; }

    [[nodiscard]] std::optional<WindowId> activeWindow() const { return activeWindow_; }

    /// The window if it can be asked to close and belongs to `process`; else null.
    [[nodiscard]] const TopLevelWindow* closable(WindowId window, ProcessId process) const;

    /// The processes that own windows.
    [[nodiscard]] std::set<ProcessId> owners() const;

    /// The processes behind docks and desktops.
    [[nodiscard]] std::vector<ProcessId> shellProcesses() const;

    /// What has been read just now. What differs from before is told.
    void replace(std::vector<TopLevelWindow> windows, std::optional<WindowId> activeWindow);

    /// Tells of a change that has not been read yet.
    void changed(bool windowsDiffer, bool activeDiffers);

    /// See WindowSystem::onWindowsChanged().
    [[nodiscard]] Subscription onWindowsChanged(std::function<void()> handler);
    /// See WindowSystem::onActiveWindowChanged().
    [[nodiscard]] Subscription onActiveWindowChanged(std::function<void()> handler);
    /// Whether there are listeners of either kind.
    [[nodiscard]] bool hasListeners() const;

    /// Calls the listeners of what has changed since the last time.
    void notify();

  private:
    std::function<void()> notifyLater_;
    Signal<> windowsChanged_;
    Signal<> activeWindowChanged_;
    std::vector<TopLevelWindow> windows_;
    std::optional<WindowId> activeWindow_;
    bool windowsDiffer_ = false;
    bool activeDiffers_ = false;
    bool isNotifying_ = false;
};

/// Gives a Wayland window its owner: `client`, the process that its compositor saw connect, or
/// nobody if that is 0 or has ended. `firstSeen` is as in OwnerClaims.
void setOwner(TopLevelWindow& window, ProcessId client, std::uint64_t firstSeen,
              const OwnerLookup& lookUp);

} // namespace calmora
