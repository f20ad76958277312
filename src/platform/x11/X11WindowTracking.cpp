// SPDX-License-Identifier: MIT
// Change tracking of X11WindowSystem.
#include "platform/x11/X11WindowSystem.h"

#include "platform/linux/windows/WindowOwner.h"

#include <algorithm>
#include <set>
#include <utility>

namespace calmora {

namespace {

template <typename Event>
const Event& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

} // namespace

void X11WindowSystem::readable() {
    handleEvents();
    tell();
}

void X11WindowSystem::handleEvents() {
    // Bounded: a client may send events faster than they are handled.
    constexpr int most = 4096;
    for (int count = 0; count < most; ++count) {
        const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())};
        if (!event) {
            break;
        }
        handle(*event);
    }
}

void X11WindowSystem::handle(const xcb_generic_event_t& event) {
    constexpr unsigned sentEventFlag = 0x80;
    switch (event.response_type & ~sentEventFlag) {
    case XCB_PROPERTY_NOTIFY:
        handleProperty(as<xcb_property_notify_event_t>(event));
        break;
    case XCB_CLIENT_MESSAGE:
        if (as<xcb_client_message_event_t>(event).type == connection_.atom(X11Atom::manager)) {
            managerProcesses_.reset();
            isListStale_ = true;
        }
        break;
    case XCB_DESTROY_NOTIFY: {
        const xcb_window_t window = as<xcb_destroy_notify_event_t>(event).window;
        if (window == watchedManager_ && window != XCB_NONE) {
            watchedManager_ = XCB_NONE;
            managerProcesses_.reset();
            isListStale_ = true;
            activeDiffers_ = true;
        } else if (manager_ == XCB_NONE) {
            isListStale_ = true;
        }
        break;
    }
    case XCB_MAP_NOTIFY:
        if (as<xcb_map_notify_event_t>(event).override_redirect == 0 && manager_ == XCB_NONE) {
            isListStale_ = true;
        }
        break;
    case XCB_UNMAP_NOTIFY:
    case XCB_REPARENT_NOTIFY:
        isListStale_ = isListStale_ || manager_ == XCB_NONE;
        break;
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT:
        activeDiffers_ = activeDiffers_ || manager_ == XCB_NONE;
        break;
    default:
        // Includes errors of requests about vanished windows.
        break;
    }
}

void X11WindowSystem::handleProperty(const xcb_property_notify_event_t& event) {
    if (event.window == connection_.root()) {
        if (event.atom == connection_.atom(X11Atom::netClientList)) {
            isListStale_ = true;
        } else if (event.atom == connection_.atom(X11Atom::netSupportingWmCheck)) {
            isListStale_ = true;
            managerProcesses_.reset();
        } else if (event.atom == connection_.atom(X11Atom::netActiveWindow)) {
            activeDiffers_ = true;
        }
        return;
    }
    if (event.atom == connection_.atom(X11Atom::wmState)) {
        isListStale_ = isListStale_ || manager_ == XCB_NONE;
        return;
    }
    const auto known = known_.find(event.window);
    if (known == known_.end()) {
        return;
    }
    if (event.atom == connection_.atom(X11Atom::netWmIcon)) {
        // Who has asked in vain may ask again.
        windowsDiffer_ = windowsDiffer_ || (known->second.icon && !*known->second.icon);
        known->second.icon.reset();
    } else if (reader_.isRelevant(event.atom)) {
        known->second.isStale = true;
        areFactsStale_ = true;
    }
}

void X11WindowSystem::forgetFacts() {
    isListStale_ = true;
    areFactsStale_ = true;
    for (auto& [window, known] : known_) {
        known.isStale = true;
    }
}

void X11WindowSystem::forgetEverything() {
    forgetFacts();
    for (auto& [window, known] : known_) {
        known.icon.reset();
    }
}

/// Call after the marks were requested.
void X11WindowSystem::forgetGone() {
    for (const xcb_window_t window : sightings_.takeGone()) {
        isListStale_ = known_.erase(window) > 0 || isListStale_;
        // What was read of its client may be wrong too.
        for (auto& [other, known] : known_) {
            if (connection_.clientBase(other) == connection_.clientBase(window)) {
                known.isStale = true;
                areFactsStale_ = true;
            }
        }
    }
    std::erase_if(order_, [this](xcb_window_t window) { return !known_.contains(window); });
}

void X11WindowSystem::forgetOwnersThatEnded() {
    const auto ended = owners_.takeEnded();
    for (auto& [window, known] : known_) {
        if (known.facts && known.facts->process &&
            std::ranges::find(ended, *known.facts->process) != ended.end()) {
            known.isStale = true;
            areFactsStale_ = true;
        }
    }
}

void X11WindowSystem::update() {
    // Windows may change while they are read; later changes are reported by the next update.
    for (int round = 0; round < 4 && isAlive_ && (isListStale_ || areFactsStale_); ++round) {
        if (isListStale_) {
            updateList();
        }
        updateFacts();
        while (const X11Reply<xcb_generic_event_t> event{
            xcb_poll_for_queued_event(connection_.get())}) {
            handle(*event);
        }
        checkConnection();
    }
}

void X11WindowSystem::updateList() {
    // Request the marks first, so that the manager's list is newer.
    sightings_.ask();
    auto managed = reader_.managedWindows();
    auto list = managed ? std::move(*managed) : reader_.unlistedWindows();
    forgetGone();
    order_ = std::move(list);
    isListStale_ = false;
    std::set<xcb_window_t> listed;
    std::erase_if(order_, [&](xcb_window_t window) { return !listed.insert(window).second; });
    for (auto known = known_.begin(); known != known_.end();) {
        if (listed.contains(known->first)) {
            ++known;
        } else {
            // Not marked again: by now the id may be that of another window.
            known = known_.erase(known);
        }
    }
    const bool selectsAgain = std::exchange(isMaskStale_, false);
    for (const xcb_window_t window : order_) {
        if (known_.try_emplace(window).second || selectsAgain) {
            sightings_.see(window, windowMask_);
        }
    }
    forgetGone();
    areFactsStale_ = true;
    const xcb_window_t before = std::exchange(manager_, reader_.managerWindow());
    if (before != manager_ || (rootMask_ != 0 && watchedManager_ != manager_)) {
        managerProcesses_.reset();
        selectEvents();
    }
}

void X11WindowSystem::updateFacts() {
    areFactsStale_ = false;
    std::vector<xcb_window_t> stale;
    for (const xcb_window_t window : order_) {
        if (known_.at(window).isStale) {
            stale.push_back(window);
        }
    }
    auto facts = reader_.read(stale);
    for (std::size_t i = 0; i < stale.size(); ++i) {
        Known& known = known_.at(stale[i]);
        known.isStale = false;
        known.facts = std::move(facts[i]);
    }
    std::vector<TopLevelWindow> current;
    std::set<ProcessId> owners;
    current.reserve(order_.size());
    for (const xcb_window_t window : order_) {
        if (const auto& known = known_.at(window); known.facts) {
            current.push_back(*known.facts);
            if (known.facts->process && isTracking_) {
                owners.insert(*known.facts->process);
            }
        }
    }
    dropContestedClaims(current);
    owners_.follow(owners);
    if (current != windows_) {
        windows_ = std::move(current);
        windowsDiffer_ = isTracking_;
    }
}

void X11WindowSystem::listenersChanged() {
    if (!isAlive_) {
        return;
    }
    selectEvents();
    if (rootMask_ != 0) {
        update();
        // New listeners are notified of later changes only.
        windowsDiffer_ = false;
        settle();
    } else {
        xcb_flush(connection_.get());
    }
}

void X11WindowSystem::selectEvents() {
    const bool listens = windowsChanged_.hasListeners() || activeWindowChanged_.hasListeners();
    const bool tracks = windowsChanged_.hasListeners() || (listens && manager_ == XCB_NONE);
    std::uint32_t mask = XCB_EVENT_MASK_NO_EVENT;
    if (listens) {
        // Managers announce themselves to StructureNotify listeners (ICCCM 2.8).
        mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        if (manager_ == XCB_NONE) {
            mask |= XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        }
    }
    if (mask != std::exchange(rootMask_, mask)) {
        xcb_change_window_attributes(connection_.get(), connection_.root(), XCB_CW_EVENT_MASK,
                                     &mask);
        forgetEverything();
        managerProcesses_.reset();
    }
    const xcb_window_t manager = listens ? manager_ : xcb_window_t{XCB_NONE};
    if (manager != std::exchange(watchedManager_, manager) && manager != XCB_NONE) {
        const std::uint32_t structure = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_.get(), manager, XCB_CW_EVENT_MASK, &structure);
    }
    isTracking_ = tracks;
    std::uint32_t windowMask = XCB_EVENT_MASK_NO_EVENT;
    if (tracks) {
        windowMask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        if (manager_ == XCB_NONE) {
            windowMask |= XCB_EVENT_MASK_FOCUS_CHANGE;
        }
    }
    if (windowMask != std::exchange(windowMask_, windowMask)) {
        isMaskStale_ = tracks;
        if (tracks) {
            // The next update selects the events once it knows which windows are gone.
            forgetEverything();
            return;
        }
        for (const auto& [window, known] : known_) {
            sightings_.see(window, windowMask);
        }
        forgetGone();
    }
}

/// Waiting for a reply makes xcb read events without making the descriptor readable again. Handles
/// them here and notifies from the next dispatch.
void X11WindowSystem::settle() {
    while (
        const X11Reply<xcb_generic_event_t> event{xcb_poll_for_queued_event(connection_.get())}) {
        handle(*event);
    }
    checkConnection();
    const bool isStale = isTracking_ && (isListStale_ || areFactsStale_);
    if ((isStale || windowsDiffer_ || activeDiffers_) && !telling_) {
        telling_ = events_.later([this] {
            telling_.reset();
            tell();
        });
    }
}

void X11WindowSystem::tell() {
    checkConnection();
    if (isTracking_ || (rootMask_ != 0 && isListStale_ && watchedManager_ != manager_)) {
        update();
    }
    if (std::exchange(windowsDiffer_, false)) {
        windowsChanged_.emit();
    }
    if (std::exchange(activeDiffers_, false)) {
        activeWindowChanged_.emit();
    }
    settle();
}

void X11WindowSystem::checkConnection() {
    if (isAlive_ && !connection_.isAlive()) {
        isAlive_ = false;
        watch_.reset();
        order_.clear();
        known_.clear();
        windows_.clear();
        owners_.follow({});
        isTracking_ = false;
        windowsDiffer_ = false;
        activeDiffers_ = false;
    }
}

} // namespace calmora
