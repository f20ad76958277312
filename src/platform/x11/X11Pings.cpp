// SPDX-License-Identifier: MIT
#include "platform/x11/X11Pings.h"

#include "platform/linux/EventPoll.h"

#include <algorithm>

namespace calmora {
namespace {

constexpr std::uint32_t mostProtocols = 64;
/// Windows that never answer are forgotten first, by their numbers.
constexpr std::size_t mostOpen = 1024;
constexpr std::chrono::seconds listening{10};

} // namespace

void X11Pings::ping(xcb_window_t window) {
    if (!connection_) {
        connection_ = std::make_unique<X11Connection>(display_);
        const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_->get(), connection_->root(), XCB_CW_EVENT_MASK,
                                     &mask);
        watch_ = connection_->isAlive() ? events_.watch(connection_->descriptor(),
                                                        [this] {
                                                            readAnswers();
                                                            stopIfDone();
                                                        })
                                        : Subscription();
    }
    lastAsked_ = std::chrono::steady_clock::now();
    if (!takesPart(window)) {
        return;
    }
    if (open_.size() >= mostOpen) {
        open_.erase(open_.begin());
    }
    // The number stands where a time is expected; window managers know their own by the time.
    open_[window] = ++last_;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = connection_->atom(X11Atom::wmProtocols);
    message.data.data32[0] = connection_->atom(X11Atom::netWmPing);
    message.data.data32[1] = last_;
    message.data.data32[2] = window;
    xcb_send_event(connection_->get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection_->get());
}

bool X11Pings::owesAnswer(xcb_window_t window) {
    readAnswers();
    return open_.contains(window);
}

bool X11Pings::takesPart(xcb_window_t window) const {
    const X11Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_->get(),
                               connection_->requestProperty(
                                   window, connection_->atom(X11Atom::wmProtocols), mostProtocols),
                               nullptr));
    return std::ranges::find(words(reply), connection_->atom(X11Atom::netWmPing)) !=
           words(reply).end();
}

void X11Pings::readAnswers() {
    // Bounded: windows may come and go faster than their events are handled.
    constexpr int most = 4096;
    for (int count = 0; connection_ && count < most; ++count) {
        const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())};
        if (!event) {
            break;
        }
        const auto& message = eventAs<xcb_client_message_event_t>(*event);
        const auto& data = message.data.data32;
        if (eventType(*event) != XCB_CLIENT_MESSAGE ||
            message.type != connection_->atom(X11Atom::wmProtocols) ||
            data[0] != connection_->atom(X11Atom::netWmPing)) {
            continue;
        }
        const auto open = open_.find(data[2]);
        if (open != open_.end() && open->second == data[1]) {
            open_.erase(open);
        }
    }
}

void X11Pings::stopIfDone() {
    if (open_.empty() || !connection_->isAlive() ||
        std::chrono::steady_clock::now() - lastAsked_ > listening) {
        watch_.reset();
        connection_.reset();
    }
}

} // namespace calmora
