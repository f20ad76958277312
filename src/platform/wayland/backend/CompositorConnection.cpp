// SPDX-License-Identifier: MIT
#include "platform/wayland/backend/CompositorConnection.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>

namespace calmora {

namespace {

using Clock = std::chrono::steady_clock;

/// What is left of the time, for poll(2).
int remaining(Clock::time_point end) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
    return static_cast<int>(std::max<std::int64_t>(0, left.count()));
}

/// Reads what has arrived until `milliseconds` are over, and dispatches it: false when the
/// connection is broken.
bool readAndDispatch(wl_display* display, int milliseconds) {
    if (wl_display_prepare_read(display) != 0) {
        return wl_display_dispatch_pending(display) >= 0;
    }
    pollfd descriptor{wl_display_get_fd(display), POLLIN, 0};
    if (wl_display_flush(display) < 0 && errno == EAGAIN) {
        descriptor.events |= POLLOUT;
    }
    if (::poll(&descriptor, 1, milliseconds) > 0 && (descriptor.revents & ~POLLOUT) != 0) {
        wl_display_read_events(display);
    } else {
        wl_display_cancel_read(display);
    }
    return wl_display_dispatch_pending(display) >= 0;
}

} // namespace

CompositorConnection::CompositorConnection(Milliseconds timeout)
    : display_(wl_display_connect(nullptr)) {
    if (!display_) {
        return;
    }
    static constexpr wl_registry_listener listener{
        .global =
            [](void* self, wl_registry*, std::uint32_t name, const char* interface,
               std::uint32_t version) {
                static_cast<CompositorConnection*>(self)->globals_.push_back(
                    {name, interface, version});
            },
        .global_remove = [](void*, wl_registry*, std::uint32_t) {}};
    registry_.reset(wl_display_get_registry(display_.get()));
    wl_registry_add_listener(registry_.get(), &listener, this);
    if (!roundTrip(timeout)) {
        globals_.clear();
        registry_.reset();
        display_.reset();
    }
}

bool CompositorConnection::isAlive() const {
    return display_ && wl_display_get_error(display_.get()) == 0;
}

bool CompositorConnection::offers(std::string_view interface) const {
    return std::ranges::find(globals_, interface, &Global::interface) != globals_.end();
}

bool CompositorConnection::dispatchUntil(const std::function<bool()>& condition,
                                         Milliseconds timeout) {
    const auto end = Clock::now() + timeout;
    while (!condition()) {
        const int left = remaining(end);
        if (left == 0 || !isAlive() || !readAndDispatch(display_.get(), left)) {
            return condition();
        }
    }
    return true;
}

bool CompositorConnection::roundTrip(Milliseconds timeout) {
    if (!isAlive()) {
        return false;
    }
    bool isDone = false;
    static constexpr wl_callback_listener listener{
        .done = [](void* done, wl_callback*, std::uint32_t) { *static_cast<bool*>(done) = true; }};
    const WaylandProxy<wl_callback> callback(wl_display_sync(display_.get()));
    wl_callback_add_listener(callback.get(), &listener, &isDone);
    dispatchUntil([&] { return isDone; }, timeout);
    return isDone;
}

bool CompositorConnection::dispatchArrived() {
    if (!isAlive() || !readAndDispatch(display_.get(), 0)) {
        return false;
    }
    // What the listeners ask for must not wait for the next event, which may depend on it.
    wl_display_flush(display_.get());
    return isAlive();
}

void* CompositorConnection::bind(const Global& global, const wl_interface& interface,
                                 std::uint32_t version) {
    return wl_registry_bind(registry_.get(), global.name, &interface,
                            std::min(version, global.version));
}

} // namespace calmora
