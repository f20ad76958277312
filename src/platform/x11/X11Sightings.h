// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace calmora {

/// Detects that a window id was reused, and records when each client was first seen. The server
/// reuses the ids of a client that has gone, so an id alone identifies nothing.
///
/// Each known window is marked in the event mask that the server keeps for us, with a bit that
/// causes no events. A window without the mark is another one. This needs no wake-ups when windows
/// move, change or go, and no unread event can hide a change. A mark may itself land on a later
/// window, so it counts from when it is read back.
class X11Sightings {
  public:
    /// The connection must outlive this object.
    explicit X11Sightings(const X11Connection& connection) : connection_(connection) {}

    /// Requests the marks without waiting; the replies arrive with those of the next request.
    void ask();

    /// The same for known windows that share a client with one of `windows`.
    void askBeside(std::span<const xcb_window_t> windows);

    /// Returns and forgets the windows whose marks are missing. Waits for the replies.
    [[nodiscard]] std::vector<xcb_window_t> takeGone();

    /// Marks a window and selects these events on it. For a window that is known already, also
    /// requests its old mark in the same breath: call takeGone() before relying on it.
    void see(xcb_window_t window, std::uint32_t events);

    /// Whether the window was marked and has not gone since.
    [[nodiscard]] bool isMarked(xcb_window_t window) const { return marked_.contains(window); }

    /// When the window's client was first seen, in clock ticks since boot; now if that is unknown.
    [[nodiscard]] std::uint64_t firstSeen(xcb_window_t window) const;

  private:
    void request(xcb_window_t window);

    const X11Connection& connection_;
    /// When each mark was first read back; absent until then.
    std::map<xcb_window_t, std::optional<std::uint64_t>> marked_;
    std::vector<std::pair<xcb_window_t, xcb_get_window_attributes_cookie_t>> asked_;
};

} // namespace calmora
