#include "platform/linux/x11/X11WindowSystem.h"

#include "platform/linux/x11/X11Icon.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace calmora {

namespace {

constexpr int iconSize = 64;
/// Four mebibytes: a picture of 1024 by 1024 pixels.
constexpr std::uint32_t iconWords = 1U << 20U;

void addUnique(std::vector<ProcessId>& processes, std::optional<ProcessId> process) {
    if (process && std::ranges::find(processes, *process) == processes.end()) {
        processes.push_back(*process);
    }
}

/// ":0" for ":0", ":0.0" and "unix:0", and for nothing, where the environment says one of them.
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

template <typename Event>
const Event& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

} // namespace

X11WindowSystem::X11WindowSystem(EventPoll& events, const std::string& display, NamespaceIds idsOf)
    : events_(events), connection_(display), reader_(connection_, std::move(idsOf)),
      isAlive_(connection_.isAlive()), windowsChanged_([this](bool) { listenersChanged(); }),
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

Subscription X11WindowSystem::onClosed(std::function<void()> handler) {
    return closed_.connect(std::move(handler));
}

const std::vector<TopLevelWindow>& X11WindowSystem::windows() {
    if (!isAlive_) {
        return windows_;
    }
    if (isTracking_) {
        while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
            handle(*event);
        }
    } else {
        forgetEverything();
    }
    update();
    settle();
    return windows_;
}

std::optional<WindowId> X11WindowSystem::activeWindow() {
    static_cast<void>(windows());
    if (!isAlive_) {
        return {};
    }
    if (manager_ == XCB_NONE) {
        return focusedWindow();
    }
    const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection_.get(),
        connection_.requestProperty(connection_.root(), connection_.atom(X11Atom::netActiveWindow),
                                    1),
        nullptr));
    settle();
    const auto active = words(reply);
    return active.empty() || active.front() == XCB_NONE ? std::nullopt
                                                        : std::optional<WindowId>(active.front());
}

std::optional<WindowId> X11WindowSystem::focusedWindow() const {
    const X11Reply<xcb_get_input_focus_reply_t> focus(xcb_get_input_focus_reply(
        connection_.get(), xcb_get_input_focus(connection_.get()), nullptr));
    xcb_window_t window = focus ? focus->focus : xcb_window_t{XCB_NONE};
    while (window > XCB_INPUT_FOCUS_POINTER_ROOT && window != connection_.root()) {
        if (known_.contains(window)) {
            return window;
        }
        const X11Reply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
            connection_.get(), xcb_query_tree(connection_.get(), window), nullptr));
        window = tree ? tree->parent : xcb_window_t{XCB_NONE};
    }
    return {};
}

bool X11WindowSystem::requestClose(WindowId window) {
    if (!isAlive_) {
        return false;
    }
    // Read afresh: closing a window that does not take part would kill its client.
    const auto target = static_cast<xcb_window_t>(window);
    const auto protocolsCookie =
        connection_.requestProperty(target, connection_.atom(X11Atom::wmProtocols), 64);
    const auto supportedCookie = connection_.requestProperty(
        connection_.root(), connection_.atom(X11Atom::netSupported), 1024);
    const X11Reply<xcb_get_property_reply_t> protocols(
        xcb_get_property_reply(connection_.get(), protocolsCookie, nullptr));
    const X11Reply<xcb_get_property_reply_t> supported(
        xcb_get_property_reply(connection_.get(), supportedCookie, nullptr));
    settle();
    const auto has = [&](const X11Reply<xcb_get_property_reply_t>& reply, X11Atom atom) {
        const auto values = words(reply);
        return std::ranges::find(values, connection_.atom(atom)) != values.end();
    };
    if (!isAlive_ || !has(protocols, X11Atom::wmDeleteWindow)) {
        return false;
    }
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = target;
    if (manager_ != XCB_NONE && has(supported, X11Atom::netCloseWindow)) {
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

std::shared_ptr<const ImagePixels> X11WindowSystem::icon(WindowId window) {
    const auto known = known_.find(static_cast<xcb_window_t>(window));
    if (!isAlive_ || known == known_.end()) {
        return nullptr;
    }
    if (!known->second.icon) {
        const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            connection_.get(),
            connection_.requestProperty(known->first, connection_.atom(X11Atom::netWmIcon),
                                        iconWords),
            nullptr));
        known->second.icon = chooseIcon(words(reply), iconSize);
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
    const X11Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection_.get(),
        xcb_get_selection_owner(connection_.get(), connection_.atom(X11Atom::selectionTray)),
        nullptr));
    if (!owner || owner->owner == XCB_NONE) {
        return {};
    }
    const std::uint32_t tray = connection_.clientBase(owner->owner);
    std::vector<xcb_window_t> icons;
    std::set<xcb_window_t> seen{connection_.root()};
    std::vector<xcb_window_t> level{connection_.root(), owner->owner};
    for (const TopLevelWindow& window : windows_) {
        if (window.type == WindowType::dock) {
            level.push_back(static_cast<xcb_window_t>(window.id));
        }
    }
    // An icon is a window of another client inside a window of the tray.
    for (int depth = 0; depth < 10 && !level.empty(); ++depth) {
        std::vector<xcb_query_tree_cookie_t> cookies;
        for (const xcb_window_t window : level) {
            cookies.push_back(xcb_query_tree(connection_.get(), window));
        }
        std::vector<xcb_window_t> next;
        for (std::size_t i = 0; i < level.size(); ++i) {
            const X11Reply<xcb_query_tree_reply_t> tree(
                xcb_query_tree_reply(connection_.get(), cookies[i], nullptr));
            if (!tree) {
                continue;
            }
            const std::span children(
                xcb_query_tree_children(tree.get()),
                static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
            const bool isTray = connection_.clientBase(level[i]) == tray;
            for (const xcb_window_t child : children) {
                const bool isOfTray = connection_.clientBase(child) == tray;
                if (isTray && !isOfTray) {
                    icons.push_back(child);
                } else if ((isOfTray || level[i] != connection_.root()) &&
                           seen.insert(child).second) {
                    next.push_back(child);
                }
            }
        }
        level = std::move(next);
    }
    std::vector<ProcessId> processes;
    for (const auto process : connection_.processesOf(icons)) {
        addUnique(processes, process);
    }
    settle();
    return processes;
}

void X11WindowSystem::flush() {
    xcb_flush(connection_.get());
    settle();
}

void X11WindowSystem::readable() {
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        handle(*event);
    }
    tell();
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
        // Errors of requests about windows that have vanished end here too.
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
        known->second.icon.reset();
    } else if (reader_.isRelevant(event.atom)) {
        known->second.isStale = true;
        areFactsStale_ = true;
    }
}

void X11WindowSystem::forgetEverything() {
    isListStale_ = true;
    areFactsStale_ = true;
    for (auto& [window, known] : known_) {
        known.isStale = true;
        known.icon.reset();
    }
}

void X11WindowSystem::update() {
    // Windows may change while they are read; what still changes after a few rounds is told later.
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
    isListStale_ = false;
    auto managed = reader_.managedWindows();
    order_ = managed ? std::move(*managed) : reader_.unlistedWindows();
    std::set<xcb_window_t> listed;
    std::erase_if(order_, [&](xcb_window_t window) { return !listed.insert(window).second; });
    for (auto known = known_.begin(); known != known_.end();) {
        if (listed.contains(known->first)) {
            ++known;
        } else {
            watchWindow(known->first, XCB_EVENT_MASK_NO_EVENT);
            known = known_.erase(known);
        }
    }
    for (const xcb_window_t window : order_) {
        if (known_.try_emplace(window).second) {
            watchWindow(window, windowMask_);
        }
    }
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
    current.reserve(order_.size());
    for (const xcb_window_t window : order_) {
        if (const auto& known = known_.at(window); known.facts) {
            current.push_back(*known.facts);
        }
    }
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
        // Whoever starts to listen hears of what comes, not of what was.
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
        // Managers announce themselves to those who select StructureNotify (ICCCM 2.8).
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
        for (const auto& [window, known] : known_) {
            watchWindow(window, windowMask);
        }
        if (tracks) {
            forgetEverything();
        }
    }
}

void X11WindowSystem::watchWindow(xcb_window_t window, std::uint32_t mask) {
    xcb_change_window_attributes(connection_.get(), window, XCB_CW_EVENT_MASK, &mask);
}

/// Waiting for an answer makes xcb read events too, which then no longer make the descriptor
/// readable: they are looked at here, and what they change is told from the next dispatch.
void X11WindowSystem::settle() {
    while (
        const X11Reply<xcb_generic_event_t> event{xcb_poll_for_queued_event(connection_.get())}) {
        handle(*event);
    }
    checkConnection();
    const bool isStale = isTracking_ && (isListStale_ || areFactsStale_);
    if ((isStale || windowsDiffer_ || activeDiffers_ || closeIsUntold_) && !telling_) {
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
    if (std::exchange(closeIsUntold_, false)) {
        closed_.emit();
    }
}

void X11WindowSystem::checkConnection() {
    if (isAlive_ && !connection_.isAlive()) {
        isAlive_ = false;
        watch_.reset();
        order_.clear();
        known_.clear();
        windows_.clear();
        isTracking_ = false;
        windowsDiffer_ = false;
        activeDiffers_ = false;
        closeIsUntold_ = true;
    }
}

} // namespace calmora
