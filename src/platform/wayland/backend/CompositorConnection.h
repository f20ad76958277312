// SPDX-License-Identifier: MIT
#pragma once

#include "support/Owned.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
#include <wayland-client.h>

namespace calmora {

/// Frees a Wayland object here; the compositor frees it with the connection.
struct ForgetProxy {
    template <typename T>
    void operator()(T* proxy) const {
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(proxy));
    }
};

/// An object of a connection of our own, which must outlive it.
template <typename T>
using WaylandProxy = std::unique_ptr<T, ForgetProxy>;

/// A connection of our own to the compositor that the environment names, beside Qt's. One that
/// could not be made, or that has broken, answers with nothing; it never ends the program.
class CompositorConnection {
  public:
    using Milliseconds = std::chrono::milliseconds;

    /// Connects and reads which globals there are: one round trip, `timeout` at most.
    explicit CompositorConnection(Milliseconds timeout = Milliseconds(500));

    /// Whether the compositor answers.
    [[nodiscard]] bool isAlive() const;

    /// The connection for calls of libwayland; null without one.
    [[nodiscard]] wl_display* display() const { return display_.get(); }

    /// Whether the compositor has a global of this interface.
    [[nodiscard]] bool offers(std::string_view interface) const;

    /// Binds every global of the interface, at `version` or what the compositor has below it.
    template <typename T>
    [[nodiscard]] std::vector<WaylandProxy<T>> bindAll(const wl_interface& interface,
                                                       std::uint32_t version) {
        std::vector<WaylandProxy<T>> bound;
        for (const Global& global : globals_) {
            if (global.interface == interface.name) {
                bound.emplace_back(static_cast<T*>(bind(global, interface, version)));
            }
        }
        return bound;
    }

    /// Binds the first global of the interface; null where there is none.
    template <typename T>
    [[nodiscard]] WaylandProxy<T> bindFirst(const wl_interface& interface, std::uint32_t version) {
        auto all = bindAll<T>(interface, version);
        return all.empty() ? nullptr : std::move(all.front());
    }

    /// Sends what is waiting, and dispatches events until `condition` holds: whether it does
    /// before the time is over.
    bool dispatchUntil(const std::function<bool()>& condition, Milliseconds timeout);

    /// Waits until the compositor has handled all requests so far: whether it has, in time.
    bool roundTrip(Milliseconds timeout);

    /// Dispatches the events that have arrived and sends what that asks for, without waiting:
    /// whether the connection is alive.
    bool dispatchArrived();

  private:
    struct Global {
        std::uint32_t name = 0;
        std::string interface;
        std::uint32_t version = 0;
    };

    void* bind(const Global& global, const wl_interface& interface, std::uint32_t version);

    Owned<wl_display, wl_display_disconnect> display_;
    WaylandProxy<wl_registry> registry_;
    std::vector<Global> globals_;
};

} // namespace calmora
