// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/windows/WindowOwner.h"
#include "platform/linux/windows/WindowSystem.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Sightings.h"

#include <optional>
#include <span>
#include <vector>

namespace calmora {

/// Reads the properties of windows. Sends all requests before it waits for a reply: two round
/// trips, whatever the number of windows.
class X11WindowReader {
  public:
    /// Connection and sightings must outlive the reader. `lookUp` finds live processes.
    X11WindowReader(const X11Connection& connection, const X11Sightings& sightings,
                    OwnerLookup lookUp);

    /// One result per window, in order; absent for a window that is gone.
    [[nodiscard]] std::vector<std::optional<TopLevelWindow>>
    read(std::span<const xcb_window_t> windows) const;

    /// The processes that connected as the windows' clients, in order; absent if ended or unknown
    /// to the server.
    [[nodiscard]] std::vector<std::optional<ProcessId>>
    clients(std::span<const xcb_window_t> windows) const;

    /// Whether read() depends on this property.
    [[nodiscard]] bool isRelevant(xcb_atom_t property) const;

    /// Waits for a property; null if the window is gone.
    [[nodiscard]] X11Reply<xcb_get_property_reply_t> take(xcb_get_property_cookie_t cookie) const;

    /// The window manager's list, oldest first; absent without a window manager that keeps one.
    /// Source: EWMH, _NET_CLIENT_LIST; _NET_SUPPORTING_WM_CHECK shows whether its writer still
    /// runs.
    [[nodiscard]] std::optional<std::vector<xcb_window_t>> managedWindows();

    /// The check window of managedWindows()'s manager; none without one.
    [[nodiscard]] xcb_window_t managerWindow() const { return managerWindow_; }

    /// The application windows without such a list: those that a simpler window manager marked with
    /// WM_STATE, else the visible children of the root.
    [[nodiscard]] std::vector<xcb_window_t> unlistedWindows();

    /// A frame of the window manager that unlistedWindows() found; none without one.
    [[nodiscard]] xcb_window_t frameWindow() const { return frameWindow_; }

  private:
    struct Pending;

    [[nodiscard]] bool isOnShownDesktop(xcb_window_t window) const;

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
