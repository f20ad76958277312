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
    for (const auto& [window, seen] : firstSeen_) {
        asked_.emplace_back(window, xcb_get_window_attributes(connection_.get(), window));
    }
}

void X11Sightings::askBeside(std::span<const xcb_window_t> windows) {
    for (const auto& [window, seen] : firstSeen_) {
        const auto hasSameClient = [&, known = window](xcb_window_t other) {
            return connection_.clientBase(other) == connection_.clientBase(known);
        };
        if (std::ranges::any_of(windows, hasSameClient)) {
            asked_.emplace_back(window, xcb_get_window_attributes(connection_.get(), window));
        }
    }
}

std::vector<xcb_window_t> X11Sightings::takeGone() {
    std::vector<xcb_window_t> gone;
    for (const auto& [window, cookie] : asked_) {
        const X11Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(connection_.get(), cookie, nullptr));
        if (!attributes || (attributes->your_event_mask & mark) == 0) {
            firstSeen_.erase(window);
            gone.push_back(window);
        }
    }
    asked_.clear();
    return gone;
}

void X11Sightings::see(xcb_window_t window, std::uint32_t events) {
    const std::uint32_t mask = events | mark;
    xcb_change_window_attributes(connection_.get(), window, XCB_CW_EVENT_MASK, &mask);
    firstSeen_.try_emplace(window, firstSeen(window));
}

std::uint64_t X11Sightings::firstSeen(xcb_window_t window) const {
    // The ids of one client are adjacent.
    const std::uint32_t client = connection_.clientBase(window);
    std::uint64_t first = ticksNow();
    for (auto known = firstSeen_.lower_bound(client);
         known != firstSeen_.end() && connection_.clientBase(known->first) == client; ++known) {
        first = std::min(first, known->second);
    }
    return first;
}

} // namespace calmora
