// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessId.h"
#include "support/Owned.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <vector>
#include <xcb/res.h>
#include <xcb/xcb.h>

namespace calmora {

/// Frees what xcb returns.
struct X11Free {
    void operator()(void* memory) const { std::free(memory); }
};

/// A reply, an error or an event of the X server; null where there is none.
template <typename T>
using X11Reply = std::unique_ptr<T, X11Free>;

/// The kind of an event, whether a client or the server sent it.
[[nodiscard]] inline std::uint8_t eventType(const xcb_generic_event_t& event) {
    constexpr unsigned sentByClient = 0x80;
    return static_cast<std::uint8_t>(event.response_type & ~sentByClient);
}

/// The event as the structure that belongs to its type.
template <typename Event>
[[nodiscard]] const Event& eventAs(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

/// The atoms that are in use; names in X11Connection.cpp, in the same order.
enum class X11Atom : std::uint8_t {
    wmProtocols,
    wmDeleteWindow,
    netWmPing,
    wmState,
    wmClientMachine,
    manager,
    netSupportingWmCheck,
    netSupported,
    netClientList,
    netActiveWindow,
    netCloseWindow,
    netWmPid,
    netWmIcon,
    netWmState,
    netWmStateSkipTaskbar,
    netWmStateModal,
    netWmStateFullscreen,
    netWmStateHidden,
    netWmDesktop,
    netCurrentDesktop,
    netWmWindowType,
    // In the order of WindowType.
    typeNormal,
    typeDialog,
    typeUtility,
    typeDock,
    typeDesktop,
    typeToolbar,
    typeMenu,
    typeSplash,
    typeDropdownMenu,
    typePopupMenu,
    typeTooltip,
    typeNotification,
    typeCombo,
    typeDnd,
    gtkApplicationId,
    gtkUniqueBusName,
    gtkApplicationObjectPath,
    kdeDesktopFile,
    netWmName,
    calmoraClock,
    // Manager selections of the screen (ICCCM 2.8); their names end in its number.
    selectionWindowManager,
    selectionCompositor,
    selectionTray,
    selectionSettings,
    count,
};

/// A connection to the X server, with its screen and atoms. One that could not be made, or that has
/// broken, answers every request with nothing.
class X11Connection {
  public:
    /// Connects to `display`; empty means the one that the environment names.
    explicit X11Connection(const std::string& display = {});

    /// The connection for xcb calls; never null.
    [[nodiscard]] xcb_connection_t* get() const { return connection_.get(); }

    /// Whether the server still answers.
    [[nodiscard]] bool isAlive() const { return xcb_connection_has_error(get()) == 0; }

    /// The descriptor to watch for events; negative without a connection.
    [[nodiscard]] int descriptor() const { return xcb_get_file_descriptor(get()); }

    [[nodiscard]] xcb_window_t root() const { return root_; }

    [[nodiscard]] xcb_atom_t atom(X11Atom atom) const {
        return atoms_.at(static_cast<std::size_t>(atom));
    }

    /// The server's process; absent when it is on another machine.
    /// Source: unix(7), SO_PEERCRED.
    [[nodiscard]] std::optional<ProcessId> serverProcess() const { return serverProcess_; }

    /// The number that all resources of the client owning `resource` share.
    [[nodiscard]] std::uint32_t clientBase(std::uint32_t resource) const {
        return resource & ~resourceMask_;
    }

    /// Whether processesOf() knows the clients on this machine.
    [[nodiscard]] bool knowsClientProcesses() const { return knowsClientProcesses_; }

    /// The processes of the clients that own the resources, in their order; absent where the server
    /// does not know. One round trip.
    /// Source: X-Resource extension 1.2, QueryClientIds.
    [[nodiscard]] std::vector<std::optional<ProcessId>>
    processesOf(std::span<const xcb_window_t> resources) const;

    /// Sends a request and waits for the reply, which is null when there is none:
    /// ask<xcb_query_tree, xcb_query_tree_reply>(window).
    template <auto request, auto fetch, typename... Arguments>
    [[nodiscard]] auto ask(Arguments... arguments) const {
        auto* reply = fetch(get(), request(get(), arguments...), nullptr);
        return X11Reply<std::remove_pointer_t<decltype(reply)>>(reply);
    }

    /// The first 32-bit values of a property: at most `words` of them.
    [[nodiscard]] xcb_get_property_cookie_t
    requestProperty(xcb_window_t window, xcb_atom_t property, std::uint32_t words) const {
        return xcb_get_property(get(), 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, words);
    }

  private:
    Owned<xcb_connection_t, xcb_disconnect> connection_;
    xcb_window_t root_ = XCB_NONE;
    std::uint32_t resourceMask_ = 0;
    std::array<xcb_atom_t, static_cast<std::size_t>(X11Atom::count)> atoms_{};
    std::optional<ProcessId> serverProcess_;
    bool knowsClientProcesses_ = false;
};

/// The 32-bit values of a property; empty for no reply or another format. Valid as long as the
/// reply.
[[nodiscard]] std::span<const std::uint32_t> words(const X11Reply<xcb_get_property_reply_t>& reply);

/// The text of a property, without the zero bytes at its end.
[[nodiscard]] std::string text(const X11Reply<xcb_get_property_reply_t>& reply);

/// The name of the running window manager; empty when there is none, or it has no name.
/// Source: EWMH, _NET_SUPPORTING_WM_CHECK.
[[nodiscard]] std::string windowManagerName(const X11Connection& connection);

} // namespace calmora
