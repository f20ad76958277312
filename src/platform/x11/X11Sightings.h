#pragma once

#include "platform/x11/X11Connection.h"

#include <cstdint>
#include <map>
#include <span>
#include <utility>
#include <vector>

namespace calmora {

/// Tells a window from a later one with the same id, and since when its client has been there.
/// The server gives the ids of a client that has gone to the next one that connects, so that an id
/// alone says nothing about what was known of it.
///
/// Each window that was seen bears a mark in the event mask that the server keeps for us, one
/// that no event goes with: a window without it is another one. So nothing wakes us up when
/// windows move, change or go, and nothing is missed while events wait to be read.
class X11Sightings {
  public:
    /// The connection must outlive this object.
    explicit X11Sightings(const X11Connection& connection) : connection_(connection) {}

    /// Asks the server for the marks. Sends only: the answers come with those of the next request
    /// that is waited for.
    void ask();

    /// The same for the windows that have a client in common with one of `windows`.
    void askBeside(std::span<const xcb_window_t> windows);

    /// The windows that asking found to be gone, or to be others; they are forgotten.
    [[nodiscard]] std::vector<xcb_window_t> takeGone();

    /// Marks a window that is not known yet, and has the server report these events of it.
    void see(xcb_window_t window, std::uint32_t events);

    /// When the client of the window was first seen, in clock ticks since the machine started;
    /// now for one that is not known.
    [[nodiscard]] std::uint64_t firstSeen(xcb_window_t window) const;

  private:
    const X11Connection& connection_;
    std::map<xcb_window_t, std::uint64_t> firstSeen_;
    std::vector<std::pair<xcb_window_t, xcb_get_window_attributes_cookie_t>> asked_;
};

} // namespace calmora
