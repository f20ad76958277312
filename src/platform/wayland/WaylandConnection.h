// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "support/Owned.h"

#include <chrono>
#include <optional>
#include <string>
#include <wayland-client-core.h>

namespace calmora {

/// A connection to a Wayland compositor that never waits for longer than it is told. Main thread.
/// Source: wl_display(3).
class WaylandConnection {
  public:
    /// Connects to the socket at `path` at once or fails.
    explicit WaylandConnection(const std::string& path);

    /// False after a failure, a protocol error or the end of the compositor.
    [[nodiscard]] bool isOpen() const { return display_ && wl_display_get_error(get()) == 0; }

    /// Null when it could not connect.
    [[nodiscard]] wl_display* get() const { return display_.get(); }

    /// To be watched for reading; negative when it could not connect.
    [[nodiscard]] int descriptor() const;

    /// The compositor; absent outside of our process namespace.  Source: unix(7), SO_PEERCRED.
    [[nodiscard]] std::optional<ProcessId> server() const;

    /// Handles the events that have arrived. Never waits.
    void dispatch();

    /// Handles events until the compositor has answered all requests so far; false when it has not
    /// done so after `timeout`.
    bool roundTrip(std::chrono::milliseconds timeout);

  private:
    /// Waits for events until the deadline, and handles them; false when there were none.
    bool dispatchUntil(std::chrono::steady_clock::time_point deadline);

    Owned<wl_display, wl_display_disconnect> display_;
};

} // namespace calmora
