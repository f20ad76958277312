// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayWindowSystem.h"

#include "platform/linux/EventPoll.h"
#include "platform/linux/proc/ProcessReader.h"

#include <algorithm>
#include <set>
#include <utility>

namespace calmora {
namespace {

/// An empty workspace has no window that could get the focus.
constexpr auto subscription = R"(["window", "workspace", "shutdown"])";
constexpr int pauseFactor = 10;

} // namespace

SwayWindowSystem::SwayWindowSystem(EventPoll& events, std::string socket,
                                   std::chrono::milliseconds timeout, OwnerLookup lookUp)
    : events_(events), socket_(std::move(socket)), timeout_(timeout), lookUp_(std::move(lookUp)),
      listed_([this] { notifying_ = events_.later([this] { listed_.notify(); }); },
              [this](bool) { listenersChanged(); }) {
    isAlive_ = readTree();
}

const std::vector<TopLevelWindow>& SwayWindowSystem::windows() {
    update();
    return listed_.windows();
}

const std::vector<TopLevelWindow>& SwayWindowSystem::windowsReadAfresh() {
    isStale_ = true;
    return windows();
}

bool SwayWindowSystem::coversAllWindows() const {
    return isAlive_ && !pausedUntil_;
}

std::optional<WindowId> SwayWindowSystem::activeWindow() {
    update();
    return listed_.activeWindow();
}

bool SwayWindowSystem::requestClose(WindowId window, ProcessId process) {
    const std::vector<TopLevelWindow>& fresh = windowsReadAfresh();
    if (!coversAllWindows() || listed_.closable(window, process) == nullptr) {
        return false;
    }
    // What a first request brought up stays a dialog when the next window is asked.
    const bool isAsking = std::ranges::any_of(fresh, [&](const TopLevelWindow& other) {
        return other.process == process && other.type == WindowType::dialog;
    });
    if (!isAsking) {
        newestAsked_[process] = fresh.back().id;
    }
    const auto reply =
        request(SwayMessageType::runCommand, "[con_id=" + std::to_string(window) + "] kill");
    return reply && parseSwaySuccess(*reply);
}

bool SwayWindowSystem::activate(WindowId window) {
    const auto reply =
        request(SwayMessageType::runCommand, "[con_id=" + std::to_string(window) + "] focus");
    return reply && parseSwaySuccess(*reply);
}

std::vector<ProcessId> SwayWindowSystem::displayProcesses() {
    return isAlive_ && compositor_ ? std::vector{*compositor_} : std::vector<ProcessId>();
}

bool SwayWindowSystem::isPaused() const {
    return pausedUntil_ && std::chrono::steady_clock::now() < *pausedUntil_;
}

void SwayWindowSystem::pause() {
    pausedUntil_ = std::chrono::steady_clock::now() + timeout_ * pauseFactor;
}

/// Absent when there is no answer in time.
std::optional<std::string> SwayWindowSystem::request(SwayMessageType type,
                                                     const std::string& payload) {
    if (!isAlive_ || isPaused()) {
        return std::nullopt;
    }
    SwayIpc connection(socket_);
    return request(connection, type, payload);
}

std::optional<std::string> SwayWindowSystem::request(SwayIpc& connection, SwayMessageType type,
                                                     const std::string& payload) {
    if (connection.isRefused()) {
        end();
        return std::nullopt;
    }
    compositor_ = connection.server();
    auto reply = connection.request(type, payload, std::chrono::steady_clock::now() + timeout_);
    pausedUntil_.reset();
    if (!reply) {
        pause();
    }
    return reply;
}

void SwayWindowSystem::listenersChanged() {
    if (!listed_.hasListeners()) {
        watch_.reset();
        stream_.reset();
    } else if (!stream_) {
        listen();
    }
}

void SwayWindowSystem::listen() {
    if (!isAlive_ || isPaused()) {
        return;
    }
    isStale_ = true;
    SwayIpc stream(socket_);
    if (request(stream, SwayMessageType::subscribe, subscription)) {
        stream_.emplace(std::move(stream));
        watch_ = events_.watch(stream_->descriptor(), [this] { readable(); });
    }
}

void SwayWindowSystem::readable() {
    handleEvents();
    listed_.notify();
}

void SwayWindowSystem::handleEvents() {
    if (!stream_) {
        return;
    }
    for (const SwayMessage& message : stream_->received()) {
        if (message.type == SwayMessageType::shutdownEvent) {
            end();
            return;
        }
        const auto change = message.type == SwayMessageType::windowEvent
                                ? parseSwayWindowEvent(message.payload)
                                : SwayChange::focus;
        isStale_ = isStale_ || change != SwayChange::none;
        listed_.changed(change == SwayChange::windows, change != SwayChange::none);
    }
    if (!stream_->isOpen()) {
        end();
    }
}

void SwayWindowSystem::update() {
    handleEvents();
    listenersChanged();
    const bool someEnded = !owners_.takeEnded().empty();
    if (isStale_ || someEnded || !stream_) {
        readTree();
    }
}

/// False when sway does not answer; what was known then stays.
bool SwayWindowSystem::readTree() {
    const auto reply = request(SwayMessageType::getTree);
    auto views = reply ? parseSwayTree(*reply) : std::nullopt;
    if (!views) {
        if (reply) {
            pause();
        }
        return false;
    }
    views_ = *std::move(views);
    isStale_ = false;
    std::erase_if(firstSeen_, [this](const auto& seen) {
        return !std::ranges::binary_search(views_, seen.first, {}, &SwayView::id);
    });
    std::vector<TopLevelWindow> windows;
    std::optional<WindowId> active;
    for (const SwayView& view : views_) {
        windows.push_back(windowOf(view));
        active = view.hasFocus ? view.id : active;
    }
    listed_.replace(std::move(windows), active);
    const std::set<ProcessId> owners = listed_.owners();
    owners_.follow(owners);
    std::erase_if(newestAsked_, [&](const auto& asked) { return !owners.contains(asked.first); });
    return true;
}

TopLevelWindow SwayWindowSystem::windowOf(const SwayView& view) {
    TopLevelWindow window;
    window.id = view.id;
    window.isFullScreen = view.isFullScreen;
    if (view.x11Id) {
        window.x11Id = view.x11Id;
        window.instance = view.instance;
        window.className = view.className;
        return window;
    }
    const auto seen = firstSeen_.try_emplace(view.id, ticksNow()).first->second;
    setOwner(window, view.process, seen, lookUp_);
    window.applicationId = view.applicationId;
    window.className = view.applicationId;
    window.canBeAsked = true;
    const auto asked = newestAsked_.find(view.process);
    if (asked != newestAsked_.end()) {
        window.transientFor = swayDialogParent(view, views_, asked->second);
    }
    window.type = window.transientFor != 0 ? WindowType::dialog : WindowType::normal;
    return window;
}

void SwayWindowSystem::end() {
    if (std::exchange(isAlive_, false)) {
        watch_.reset();
        stream_.reset();
        views_.clear();
        listed_.replace({}, std::nullopt);
        listed_.changed(/*windowsDiffer=*/true, /*activeDiffers=*/true);
    }
}

} // namespace calmora
