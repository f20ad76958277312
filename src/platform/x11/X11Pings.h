// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"
#include "support/Subscription.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace calmora {

class EventPoll;

/// Finds out which windows' programs handle events, by asking them. Has a connection of its own,
/// because the answers come with every event of the root window's children; it exists from a
/// question until all are answered, or ten seconds have passed.
/// Source: EWMH, _NET_WM_PING.
class X11Pings {
  public:
    /// `events` must outlive the object.
    X11Pings(EventPoll& events, std::string display)
        : events_(events), display_(std::move(display)) {}

    /// Asks the window, unless it does not take part. One round trip.
    void ping(xcb_window_t window);

    /// Whether the window was asked and its last answer is missing.
    [[nodiscard]] bool owesAnswer(xcb_window_t window);

  private:
    [[nodiscard]] bool takesPart(xcb_window_t window) const;
    void readAnswers();
    void stopIfDone();

    EventPoll& events_;
    std::string display_;
    /// Null while nothing is waited for.
    std::unique_ptr<X11Connection> connection_;
    Subscription watch_;
    /// The number of each question that has no answer yet.
    std::map<xcb_window_t, std::uint32_t> open_;
    std::uint32_t last_ = 0;
    std::chrono::steady_clock::time_point lastAsked_;
};

} // namespace calmora
