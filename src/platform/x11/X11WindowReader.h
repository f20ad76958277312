#pragma once

#include "platform/linux/windows/WindowOwner.h"
#include "platform/linux/windows/WindowSystem.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Sightings.h"

#include <optional>
#include <span>
#include <vector>

namespace calmora {

/// Reads what windows say of themselves. All requests go out before the first answer is waited
/// for: two round trips, whatever the number of windows.
class X11WindowReader {
  public:
    /// Connection and sightings must outlive the reader. `lookUp` tells about live processes.
    X11WindowReader(const X11Connection& connection, const X11Sightings& sightings,
                    OwnerLookup lookUp);

    /// One answer for each window in their order; absent for a window that is gone.
    [[nodiscard]] std::vector<std::optional<TopLevelWindow>>
    read(std::span<const xcb_window_t> windows) const;

    /// The processes that connected as the clients of the windows, in their order; absent where one
    /// has ended or the server cannot tell.
    [[nodiscard]] std::vector<std::optional<ProcessId>>
    clients(std::span<const xcb_window_t> windows) const;

    /// Whether a change of this property can change an answer of read().
    [[nodiscard]] bool isRelevant(xcb_atom_t property) const;

    /// Waits for the value of a property; null for a window that is gone.
    [[nodiscard]] X11Reply<xcb_get_property_reply_t> take(xcb_get_property_cookie_t cookie) const;

    /// The windows of the window manager's list, oldest first; absent when no window manager
    /// keeps one. Source: EWMH, _NET_CLIENT_LIST; _NET_SUPPORTING_WM_CHECK tells whether the
    /// manager that wrote it still lives.
    [[nodiscard]] std::optional<std::vector<xcb_window_t>> managedWindows();

    /// The window by which the manager of managedWindows() is known; none without one.
    [[nodiscard]] xcb_window_t managerWindow() const { return managerWindow_; }

    /// The windows that a user would count without such a list: those that a simpler window
    /// manager has marked with WM_STATE, and, without any, the visible children of the root.
    [[nodiscard]] std::vector<xcb_window_t> unlistedWindows();

    /// A frame that a manager found by unlistedWindows() has put around a window; none without one.
    [[nodiscard]] xcb_window_t frameWindow() const { return frameWindow_; }

  private:
    struct Pending;

    [[nodiscard]] Pending request(xcb_window_t window) const;
    [[nodiscard]] std::optional<TopLevelWindow> collect(const Pending& pending,
                                                        OwnerClaims& claims) const;
    [[nodiscard]] WindowType type(std::span<const std::uint32_t> atoms) const;

    const X11Connection& connection_;
    const X11Sightings& sightings_;
    OwnerLookup lookUp_;
    xcb_window_t managerWindow_ = XCB_NONE;
    xcb_window_t frameWindow_ = XCB_NONE;
};

} // namespace calmora
