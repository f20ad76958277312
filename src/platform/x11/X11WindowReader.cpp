// SPDX-License-Identifier: MIT
#include "platform/x11/X11WindowReader.h"

#include <algorithm>
#include <array>
#include <map>
#include <unistd.h>
#include <utility>

namespace calmora {

namespace {

/// More than anyone needs; guards against a runaway client.
constexpr std::uint32_t mostWindows = 8192;
constexpr std::uint32_t textWords = 256;
constexpr std::uint32_t listWords = 64;

/// Index of the group leader in WM_HINTS and its flag (ICCCM 4.1.2.4).
constexpr std::size_t hintsGroup = 8;
constexpr std::uint32_t hintsGroupFlag = 1U << 6U;

std::string hostName() {
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? std::string(name.data())
                                                            : std::string();
}

bool contains(std::span<const std::uint32_t> values, xcb_atom_t value) {
    return value != XCB_ATOM_NONE && std::ranges::find(values, value) != values.end();
}

/// A window that may be a client's, and what was asked about it.
struct Candidate {
    xcb_window_t window = XCB_NONE;
    xcb_get_window_attributes_cookie_t attributes{};
    xcb_get_property_cookie_t state{};
    xcb_query_tree_cookie_t children{};
    /// The root's child above it, or itself.
    xcb_window_t top = XCB_NONE;
};

std::vector<xcb_window_t> takeChildren(const X11Connection& connection,
                                       xcb_query_tree_cookie_t cookie) {
    const X11Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection.get(), cookie, nullptr));
    if (!tree) {
        return {};
    }
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

} // namespace

struct X11WindowReader::Pending {
    xcb_window_t window = XCB_NONE;
    xcb_get_property_cookie_t wmClass{};
    xcb_get_property_cookie_t transientFor{};
    xcb_get_property_cookie_t hints{};
    xcb_get_property_cookie_t protocols{};
    xcb_get_property_cookie_t machine{};
    xcb_get_property_cookie_t process{};
    xcb_get_property_cookie_t types{};
    xcb_get_property_cookie_t states{};
    xcb_get_property_cookie_t gtkApplicationId{};
    xcb_get_property_cookie_t gtkBusName{};
    xcb_get_property_cookie_t gtkObjectPath{};
    xcb_get_property_cookie_t kdeDesktopFile{};
};

X11WindowReader::X11WindowReader(const X11Connection& connection, const X11Sightings& sightings,
                                 OwnerLookup lookUp)
    : connection_(connection), sightings_(sightings), lookUp_(std::move(lookUp)) {}

X11Reply<xcb_get_property_reply_t> X11WindowReader::take(xcb_get_property_cookie_t cookie) const {
    return X11Reply<xcb_get_property_reply_t>(
        xcb_get_property_reply(connection_.get(), cookie, nullptr));
}

bool X11WindowReader::isRelevant(xcb_atom_t property) const {
    constexpr std::array predefined{XCB_ATOM_WM_CLASS, XCB_ATOM_WM_TRANSIENT_FOR,
                                    XCB_ATOM_WM_HINTS};
    constexpr std::array own{X11Atom::wmProtocols,      X11Atom::wmClientMachine,
                             X11Atom::netWmPid,         X11Atom::netWmWindowType,
                             X11Atom::netWmState,       X11Atom::gtkApplicationId,
                             X11Atom::gtkUniqueBusName, X11Atom::gtkApplicationObjectPath,
                             X11Atom::kdeDesktopFile};
    return std::ranges::find(predefined, property) != predefined.end() ||
           std::ranges::any_of(own,
                               [&](X11Atom atom) { return connection_.atom(atom) == property; });
}

X11WindowReader::Pending X11WindowReader::request(xcb_window_t window) const {
    const auto ask = [&](xcb_atom_t property, std::uint32_t size) {
        return connection_.requestProperty(window, property, size);
    };
    Pending pending;
    pending.window = window;
    pending.wmClass = ask(XCB_ATOM_WM_CLASS, textWords);
    pending.transientFor = ask(XCB_ATOM_WM_TRANSIENT_FOR, 1);
    pending.hints = ask(XCB_ATOM_WM_HINTS, hintsGroup + 1);
    pending.protocols = ask(connection_.atom(X11Atom::wmProtocols), listWords);
    pending.machine = ask(connection_.atom(X11Atom::wmClientMachine), textWords);
    pending.process = ask(connection_.atom(X11Atom::netWmPid), 1);
    pending.types = ask(connection_.atom(X11Atom::netWmWindowType), listWords);
    pending.states = ask(connection_.atom(X11Atom::netWmState), listWords);
    pending.gtkApplicationId = ask(connection_.atom(X11Atom::gtkApplicationId), textWords);
    pending.gtkBusName = ask(connection_.atom(X11Atom::gtkUniqueBusName), textWords);
    pending.gtkObjectPath = ask(connection_.atom(X11Atom::gtkApplicationObjectPath), textWords);
    pending.kdeDesktopFile = ask(connection_.atom(X11Atom::kdeDesktopFile), textWords);
    return pending;
}

WindowType X11WindowReader::type(std::span<const std::uint32_t> atoms) const {
    // The atoms name the types in their order; those behind the known ones are others.
    constexpr auto first = static_cast<int>(X11Atom::typeNormal);
    constexpr auto last = static_cast<int>(X11Atom::typeDnd);
    for (const std::uint32_t atom : atoms) {
        for (int at = first; at <= last; ++at) {
            if (connection_.atom(static_cast<X11Atom>(at)) == atom) {
                return std::min(static_cast<WindowType>(at - first + 1), WindowType::other);
            }
        }
    }
    return WindowType::none;
}

std::optional<TopLevelWindow> X11WindowReader::collect(const Pending& pending,
                                                       OwnerClaims& claims) const {
    // Take every reply, even once the window is known to be gone.
    bool exists = true;
    const auto take = [&](xcb_get_property_cookie_t cookie) {
        auto reply = this->take(cookie);
        exists = exists && reply != nullptr;
        return reply;
    };
    const auto first = [](const X11Reply<xcb_get_property_reply_t>& reply) {
        const auto values = words(reply);
        return values.empty() ? 0U : values.front();
    };

    TopLevelWindow window;
    window.id = pending.window;
    const std::string wmClass = text(take(pending.wmClass));
    const std::size_t split = std::min(wmClass.find('\0'), wmClass.size());
    window.instance = wmClass.substr(0, split);
    window.className = wmClass.substr(std::min(split + 1, wmClass.size()));
    window.transientFor = first(take(pending.transientFor));
    const auto hintsReply = take(pending.hints);
    if (const auto hints = words(hintsReply);
        hints.size() > hintsGroup && (hints[0] & hintsGroupFlag) != 0) {
        window.group = hints[hintsGroup];
    }
    window.canBeAsked =
        contains(words(take(pending.protocols)), connection_.atom(X11Atom::wmDeleteWindow));
    claims.machine = text(take(pending.machine));
    const auto process = static_cast<ProcessId>(first(take(pending.process)));
    if (process > 0) {
        claims.property = process;
    }
    window.type = type(words(take(pending.types)));
    const auto statesReply = take(pending.states);
    window.skipsTaskbar =
        contains(words(statesReply), connection_.atom(X11Atom::netWmStateSkipTaskbar));
    window.isModal = contains(words(statesReply), connection_.atom(X11Atom::netWmStateModal));
    window.isFullScreen =
        contains(words(statesReply), connection_.atom(X11Atom::netWmStateFullscreen)) &&
        !contains(words(statesReply), connection_.atom(X11Atom::netWmStateHidden)) &&
        isOnShownDesktop(pending.window);
    window.gtkApplicationId = text(take(pending.gtkApplicationId));
    window.gtkBusName = text(take(pending.gtkBusName));
    window.gtkObjectPath = text(take(pending.gtkObjectPath));
    window.kdeDesktopFile = text(take(pending.kdeDesktopFile));
    return exists ? std::optional(std::move(window)) : std::nullopt;
}

/// Asked for windows in full screen alone, which are few.  Source: EWMH, _NET_WM_DESKTOP.
bool X11WindowReader::isOnShownDesktop(xcb_window_t window) const {
    constexpr std::uint32_t all = 0xffffffff;
    const auto ownCookie =
        connection_.requestProperty(window, connection_.atom(X11Atom::netWmDesktop), 1);
    const auto shownCookie = connection_.requestProperty(
        connection_.root(), connection_.atom(X11Atom::netCurrentDesktop), 1);
    const auto ownReply = take(ownCookie);
    const auto shownReply = take(shownCookie);
    const auto own = words(ownReply);
    const auto shown = words(shownReply);
    return own.empty() || shown.empty() || own.front() == all || own.front() == shown.front();
}

std::vector<std::optional<TopLevelWindow>>
X11WindowReader::read(std::span<const xcb_window_t> windows) const {
    std::vector<Pending> pending;
    pending.reserve(windows.size());
    for (const xcb_window_t window : windows) {
        pending.push_back(request(window));
    }
    const auto clients = connection_.processesOf(windows);
    const std::string host = hostName();
    // Many windows have one owner.
    std::map<ProcessId, std::optional<std::uint64_t>> startTimes;
    const OwnerLookup lookUp{[&](ProcessId process) {
                                 const auto [known, isNew] = startTimes.try_emplace(process);
                                 if (isNew) {
                                     known->second = lookUp_.startTime(process);
                                 }
                                 return known->second;
                             },
                             lookUp_.process};
    std::vector<std::optional<TopLevelWindow>> result;
    result.reserve(windows.size());
    for (std::size_t i = 0; i < windows.size(); ++i) {
        OwnerClaims claims;
        claims.client = clients[i];
        claims.firstSeen = sightings_.firstSeen(windows[i]);
        claims.systemTells = connection_.knowsClientProcesses();
        auto window = collect(pending[i], claims);
        if (window) {
            claims.instance = window->instance;
            claims.className = window->className;
            const WindowOwner owner = windowOwner(claims, host, lookUp);
            window->process = owner.process;
            window->certainty = owner.certainty;
            window->isRemote = owner.isRemote;
        }
        result.push_back(std::move(window));
    }
    return result;
}

std::vector<std::optional<ProcessId>>
X11WindowReader::clients(std::span<const xcb_window_t> windows) const {
    auto clients = connection_.processesOf(windows);
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const OwnerClaims claims{.client = clients[i],
                                 .firstSeen = sightings_.firstSeen(windows[i])};
        clients[i] = windowOwner(claims, {}, lookUp_).process;
    }
    return clients;
}

std::optional<std::vector<xcb_window_t>> X11WindowReader::managedWindows() {
    const xcb_atom_t check = connection_.atom(X11Atom::netSupportingWmCheck);
    const auto checkCookie = connection_.requestProperty(connection_.root(), check, 1);
    const auto listCookie = connection_.requestProperty(
        connection_.root(), connection_.atom(X11Atom::netClientList), mostWindows);
    const auto rootCheck = take(checkCookie);
    const auto list = take(listCookie);

    managerWindow_ = XCB_NONE;
    frameWindow_ = XCB_NONE;
    const auto manager = words(rootCheck);
    if (manager.empty() || manager.front() == XCB_NONE || !list || list->type != XCB_ATOM_WINDOW) {
        return {};
    }
    // A dead manager leaves its property behind, but not the window it names.
    const auto ownCheck = take(connection_.requestProperty(manager.front(), check, 1));
    const auto own = words(ownCheck);
    if (own.empty() || own.front() != manager.front()) {
        return {};
    }
    managerWindow_ = manager.front();
    const auto ids = words(list);
    return std::vector<xcb_window_t>(ids.begin(), ids.end());
}

std::vector<xcb_window_t> X11WindowReader::unlistedWindows() {
    const auto ask = [&](xcb_window_t window, xcb_window_t top) {
        return Candidate{window, xcb_get_window_attributes(connection_.get(), window),
                         connection_.requestProperty(window, connection_.atom(X11Atom::wmState), 1),
                         xcb_query_tree(connection_.get(), window), top};
    };
    std::vector<Candidate> candidates;
    for (const xcb_window_t child :
         takeChildren(connection_, xcb_query_tree(connection_.get(), connection_.root()))) {
        if (candidates.size() < mostWindows) {
            candidates.push_back(ask(child, child));
        }
    }
    std::vector<xcb_window_t> marked;
    std::vector<xcb_window_t> visible;
    // A simple window manager puts each client into a frame, one or two levels below the root's
    // child.
    for (int level = 0; level < 3; ++level) {
        std::vector<Candidate> next;
        for (const Candidate& candidate : candidates) {
            const X11Reply<xcb_get_window_attributes_reply_t> attributes(
                xcb_get_window_attributes_reply(connection_.get(), candidate.attributes, nullptr));
            const auto state = take(candidate.state);
            const auto children = takeChildren(connection_, candidate.children);
            if (!attributes || attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY) {
                continue;
            }
            // WM_STATE is Withdrawn (0), Normal (1) or Iconic (3): ICCCM 4.1.3.1.
            if (const auto values = words(state); !values.empty()) {
                if (values.front() != 0) {
                    marked.push_back(candidate.window);
                    if (level > 0) {
                        frameWindow_ = candidate.top;
                    }
                }
                continue;
            }
            if (level == 0 && attributes->override_redirect == 0 &&
                attributes->map_state == XCB_MAP_STATE_VIEWABLE) {
                visible.push_back(candidate.window);
            }
            if (level < 2) {
                for (const xcb_window_t child : children) {
                    next.push_back(ask(child, candidate.top));
                }
            }
        }
        candidates = std::move(next);
    }
    return marked.empty() ? visible : marked;
}

} // namespace calmora
