// SPDX-License-Identifier: MIT
#include "platform/x11/X11Sightings.h"

#include "platform/linux/proc/ProcessReader.h"

#include <algorithm>

namespace calmora {

namespace {

/// Only affects pointer grabs of clients that select button presses, which we never do. Source: X
/// Window System Protocol, chapter 10, ButtonPress.
constexpr std::uint32_t mark = XCB_EVENT_MASK_OWNER_GRAB_BUTTON;

} // namespace

void X11Sightings::ask() {
    for (const auto& [window, since] : marked_) {
        request(window);
    }
}

void X11Sightings::askBeside(std::span<const xcb_window_t> windows) {
    for (const auto& [window, since] : marked_) {
        const auto hasSameClient = [&, known = window](xcb_window_t other) {
            return connection_.clientBase(other) == connection_.clientBase(known);
        };
        if (std::ranges::any_of(windows, hasSameClient)) {
            request(window);
        }
    }
}

void X11Sightings::request(xcb_window_t window) {
    asked_.emplace_back(window, xcb_get_window_attributes(connection_.get(), window));
}

std::vector<xcb_window_t> X11Sightings::takeGone() {
    std::vector<xcb_window_t> gone;
    for (const auto& [window, cookie] : asked_) {
        const X11Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(connection_.get(), cookie, nullptr));
        const auto marked = marked_.find(window);
        if (!attributes || (attributes->your_event_mask & mark) == 0) {
            gone.push_back(window);
            if (marked != marked_.end()) {
                marked_.erase(marked);
            }
        } else if (marked != marked_.end() && !marked->second) {
            marked->second = ticksNow();
        }
    }
    asked_.clear();
    return gone;
}

void X11Sightings::see(xcb_window_t window, std::uint32_t events) {
    if (!marked_.try_emplace(window).second) {
        // The id may have passed on since the last answer. Nobody else gets a turn at the server
        // between these two requests for long enough to leave and come back.
        request(window);
    }
    const std::uint32_t mask = events | mark;
    xcb_change_window_attributes(connection_.get(), window, XCB_CW_EVENT_MASK, &mask);
}

std::uint64_t X11Sightings::firstSeen(xcb_window_t window) const {
    // The ids of one client are adjacent.
    const std::uint32_t client = connection_.clientBase(window);
    std::uint64_t first = ticksNow();
    for (auto known = marked_.lower_bound(client);
         known != marked_.end() && connection_.clientBase(known->first) == client; ++known) {
        first = std::min(first, known->second.value_or(first));
    }
    return first;
}

} // namespace calmora
