// SPDX-License-Identifier: MIT
#include "platform/x11/X11WindowSystem.h"

#include "platform/linux/windows/WaylandSession.h"
#include "platform/x11/X11Icon.h"
#include "platform/x11/X11Tray.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>
#include <xcb/screensaver.h>

namespace calmora {

namespace {

constexpr int iconSize = 64;
/// Four MiB: a picture of 1024 by 1024 pixels.
constexpr std::uint32_t iconWords = 1U << 20U;

void addUnique(std::vector<ProcessId>& processes, std::optional<ProcessId> process) {
    if (process && std::ranges::find(processes, *process) == processes.end()) {
        processes.push_back(*process);
    }
}

/// ":0" for ":0", ":0.0" and "unix:0"; an empty display means $DISPLAY.
std::string displayWithoutScreen(const std::string& display) {
    char* host = nullptr;
    int number = 0;
    if (xcb_parse_display(display.empty() ? nullptr : display.c_str(), &host, &number, nullptr) ==
        0) {
        return {};
    }
    const X11Reply<char> owned(host);
    const std::string name(host);
    return (name == "unix" ? std::string() : name) + ':' + std::to_string(number);
}

} // namespace

X11WindowSystem::X11WindowSystem(EventPoll& events, const std::string& display,
                                 EnvironmentReader environment, OwnerLookup lookUp)
    : events_(events), environment_(std::move(environment)), connection_(display),
      sightings_(connection_), reader_(connection_, sightings_, std::move(lookUp)),
      pings_(events_, display), isAlive_(connection_.isAlive()),
      windowsChanged_([this](bool) { listenersChanged(); }),
      activeWindowChanged_([this](bool) { listenersChanged(); }) {
    if (isAlive_) {
        displayName_ = displayWithoutScreen(display);
        watch_ = events_.watch(connection_.descriptor(), [this] { readable(); });
    }
}

Subscription X11WindowSystem::onWindowsChanged(std::function<void()> handler) {
    return windowsChanged_.connect(std::move(handler));
}

Subscription X11WindowSystem::onActiveWindowChanged(std::function<void()> handler) {
    return activeWindowChanged_.connect(std::move(handler));
}

const std::vector<TopLevelWindow>& X11WindowSystem::windows() {
    if (!isAlive_) {
        return windows_;
    }
    if (isTracking_) {
        handleEvents();
        forgetOwnersThatEnded();
    } else {
        forgetEverything();
    }
    update();
    settle();
    return windows_;
}

const std::vector<TopLevelWindow>& X11WindowSystem::windowsReadAfresh() {
    forgetFacts();
    return windows();
}

bool X11WindowSystem::coversAllWindows() const {
    return !isWaylandSession(environment_);
}

std::optional<WindowId> X11WindowSystem::activeWindow() {
    static_cast<void>(windows());
    if (!isAlive_) {
        return {};
    }
    if (manager_ == XCB_NONE) {
        return focusedWindow();
    }
    const auto reply = reader_.take(connection_.requestProperty(
        connection_.root(), connection_.atom(X11Atom::netActiveWindow), 1));
    settle();
    const auto active = words(reply);
    return active.empty() || active.front() == XCB_NONE ? std::nullopt
                                                        : std::optional<WindowId>(active.front());
}

std::optional<std::chrono::milliseconds> X11WindowSystem::sinceInput() {
    if (!isAlive_ || !coversAllWindows()) {
        return {};
    }
    const auto* extension = xcb_get_extension_data(connection_.get(), &xcb_screensaver_id);
    if (extension == nullptr || extension->present == 0) {
        return {};
    }
    const auto info = connection_.ask<xcb_screensaver_query_info, xcb_screensaver_query_info_reply>(
        connection_.root());
    settle();
    return info ? std::optional(std::chrono::milliseconds(info->ms_since_user_input))
                : std::nullopt;
}

std::optional<WindowId> X11WindowSystem::focusedWindow() const {
    const auto focus = connection_.ask<xcb_get_input_focus, xcb_get_input_focus_reply>();
    xcb_window_t window = focus ? focus->focus : xcb_window_t{XCB_NONE};
    while (window > XCB_INPUT_FOCUS_POINTER_ROOT && window != connection_.root()) {
        if (known_.contains(window)) {
            return window;
        }
        const auto tree = connection_.ask<xcb_query_tree, xcb_query_tree_reply>(window);
        window = tree ? tree->parent : xcb_window_t{XCB_NONE};
    }
    return {};
}

bool X11WindowSystem::requestClose(WindowId window, ProcessId process) {
    if (!isAlive_) {
        return false;
    }
    // Closing a window without WM_DELETE_WINDOW would kill its client.
    const auto target = static_cast<xcb_window_t>(window);
    const auto supportedCookie = connection_.requestProperty(
        connection_.root(), connection_.atom(X11Atom::netSupported), 1024);
    const auto facts = reader_.read(std::span(&target, 1)).front();
    const auto supported = reader_.take(supportedCookie);
    settle();
    if (!isAlive_ || !facts || facts->process != process || !facts->canBeAsked) {
        return false;
    }
    const auto values = words(supported);
    const bool managerCloses =
        manager_ != XCB_NONE && facts->certainty == ProcessCertainty::certain &&
        std::ranges::find(values, connection_.atom(X11Atom::netCloseWindow)) != values.end();
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = target;
    if (managerCloses) {
        constexpr std::uint32_t sourcePager = 2;
        message.type = connection_.atom(X11Atom::netCloseWindow);
        message.data.data32[0] = XCB_CURRENT_TIME;
        message.data.data32[1] = sourcePager;
        xcb_send_event(connection_.get(), 0, connection_.root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&message));
    } else {
        message.type = connection_.atom(X11Atom::wmProtocols);
        message.data.data32[0] = connection_.atom(X11Atom::wmDeleteWindow);
        message.data.data32[1] = XCB_CURRENT_TIME;
        xcb_send_event(connection_.get(), 0, target, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&message));
    }
    return true;
}

bool X11WindowSystem::activate(WindowId window) {
    const auto target = static_cast<xcb_window_t>(window);
    const auto supported = reader_.take(connection_.requestProperty(
        connection_.root(), connection_.atom(X11Atom::netSupported), 1024));
    const auto values = words(supported);
    settle();
    if (!isAlive_) {
        return false;
    }
    if (manager_ == XCB_NONE ||
        std::ranges::find(values, connection_.atom(X11Atom::netActiveWindow)) == values.end()) {
        const std::uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_map_window(connection_.get(), target);
        xcb_configure_window(connection_.get(), target, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        xcb_set_input_focus(connection_.get(), XCB_INPUT_FOCUS_PARENT, target, XCB_CURRENT_TIME);
        return true;
    }
    constexpr std::uint32_t sourcePager = 2;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = target;
    message.type = connection_.atom(X11Atom::netActiveWindow);
    message.data.data32[0] = sourcePager;
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(connection_.get(), 0, connection_.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    return true;
}

std::shared_ptr<const ImagePixels> X11WindowSystem::icon(WindowId window) {
    const auto known = known_.find(static_cast<xcb_window_t>(window));
    if (!isAlive_ || known == known_.end()) {
        return nullptr;
    }
    if (!known->second.icon) {
        const auto reply = reader_.take(connection_.requestProperty(
            known->first, connection_.atom(X11Atom::netWmIcon), iconWords));
        auto chosen = chooseIcon(words(reply), iconSize);
        known->second.icon = chosen ? chosen : hintsIcon(connection_, known->first);
        const auto picture = *known->second.icon;
        settle();
        return picture;
    }
    return *known->second.icon;
}

std::vector<ProcessId> X11WindowSystem::displayProcesses() {
    static_cast<void>(windows());
    if (!isAlive_) {
        return {};
    }
    if (rootMask_ == 0 || !managerProcesses_) {
        constexpr std::array selections{X11Atom::selectionWindowManager,
                                        X11Atom::selectionCompositor, X11Atom::selectionTray,
                                        X11Atom::selectionSettings};
        std::array<xcb_get_selection_owner_cookie_t, selections.size()> cookies{};
        std::ranges::transform(selections, cookies.begin(), [&](X11Atom selection) {
            return xcb_get_selection_owner(connection_.get(), connection_.atom(selection));
        });
        std::vector<xcb_window_t> owners;
        for (const auto cookie : cookies) {
            const X11Reply<xcb_get_selection_owner_reply_t> reply(
                xcb_get_selection_owner_reply(connection_.get(), cookie, nullptr));
            owners.push_back(reply ? reply->owner : xcb_window_t{XCB_NONE});
        }
        owners.push_back(manager_);
        owners.push_back(reader_.frameWindow());
        std::erase(owners, xcb_window_t{XCB_NONE});
        managerProcesses_.emplace();
        addUnique(*managerProcesses_, connection_.serverProcess());
        for (const auto process : connection_.processesOf(owners)) {
            addUnique(*managerProcesses_, process);
        }
    }
    std::vector<ProcessId> processes = *managerProcesses_;
    for (const TopLevelWindow& window : windows_) {
        if (window.type == WindowType::dock || window.type == WindowType::desktop) {
            addUnique(processes, window.process);
        }
    }
    settle();
    return processes;
}

std::vector<ProcessId> X11WindowSystem::trayIconProcesses() {
    static_cast<void>(windows());
    if (!isAlive_) {
        return {};
    }
    const auto owner = connection_.ask<xcb_get_selection_owner, xcb_get_selection_owner_reply>(
        connection_.atom(X11Atom::selectionTray));
    if (!owner || owner->owner == XCB_NONE) {
        return {};
    }
    std::vector<xcb_window_t> docks;
    for (const TopLevelWindow& window : windows_) {
        if (window.type == WindowType::dock) {
            docks.push_back(static_cast<xcb_window_t>(window.id));
        }
    }
    const auto icons = trayIcons(connection_, owner->owner, docks);
    sightings_.askBeside(icons);
    forgetGone();
    for (const xcb_window_t icon : icons) {
        if (!sightings_.isMarked(icon)) {
            sightings_.see(icon, XCB_EVENT_MASK_NO_EVENT);
        }
    }
    std::vector<ProcessId> processes;
    for (const auto process : reader_.clients(icons)) {
        addUnique(processes, process);
    }
    settle();
    return processes;
}

void X11WindowSystem::flush() {
    xcb_flush(connection_.get());
    settle();
}

} // namespace calmora
