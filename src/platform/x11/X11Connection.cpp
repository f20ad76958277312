// SPDX-License-Identifier: MIT
#include "platform/x11/X11Connection.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <sys/socket.h>

namespace calmora {

namespace {

constexpr std::array<std::string_view, static_cast<std::size_t>(X11Atom::count)> atomNames{
    "WM_PROTOCOLS",
    "WM_DELETE_WINDOW",
    "_NET_WM_PING",
    "WM_STATE",
    "WM_CLIENT_MACHINE",
    "MANAGER",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_SUPPORTED",
    "_NET_CLIENT_LIST",
    "_NET_ACTIVE_WINDOW",
    "_NET_CLOSE_WINDOW",
    "_NET_WM_PID",
    "_NET_WM_ICON",
    "_NET_WM_STATE",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_STATE_MODAL",
    "_NET_WM_STATE_FULLSCREEN",
    "_NET_WM_STATE_HIDDEN",
    "_NET_WM_DESKTOP",
    "_NET_CURRENT_DESKTOP",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_UTILITY",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_TOOLBAR",
    "_NET_WM_WINDOW_TYPE_MENU",
    "_NET_WM_WINDOW_TYPE_SPLASH",
    "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU",
    "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WM_WINDOW_TYPE_TOOLTIP",
    "_NET_WM_WINDOW_TYPE_NOTIFICATION",
    "_NET_WM_WINDOW_TYPE_COMBO",
    "_NET_WM_WINDOW_TYPE_DND",
    "_GTK_APPLICATION_ID",
    "_GTK_UNIQUE_BUS_NAME",
    "_GTK_APPLICATION_OBJECT_PATH",
    "_KDE_NET_WM_DESKTOP_FILE",
    "_NET_WM_NAME",
    "_CALMORA_CLOCK",
    "WM_S",
    "_NET_WM_CM_S",
    "_NET_SYSTEM_TRAY_S",
    "_XSETTINGS_S",
};

std::optional<ProcessId> peerProcess(int descriptor) {
    ucred peer{};
    socklen_t size = sizeof peer;
    if (::getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0 || peer.pid < 1) {
        return {};
    }
    return peer.pid;
}

bool isLocal(int descriptor) {
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    return ::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size) == 0 &&
           address.ss_family == AF_UNIX;
}

} // namespace

X11Connection::X11Connection(const std::string& display) {
    int screenNumber = 0;
    connection_.reset(xcb_connect(display.empty() ? nullptr : display.c_str(), &screenNumber));
    if (!isAlive()) {
        return;
    }
    const xcb_setup_t* setup = xcb_get_setup(get());
    auto screens = xcb_setup_roots_iterator(setup);
    for (int i = 0; i < screenNumber && screens.rem > 1; ++i) {
        xcb_screen_next(&screens);
    }
    root_ = screens.data->root;
    resourceMask_ = setup->resource_id_mask;

    std::array<xcb_intern_atom_cookie_t, atomNames.size()> cookies{};
    for (std::size_t i = 0; i < atomNames.size(); ++i) {
        std::string name(atomNames.at(i));
        if (i >= static_cast<std::size_t>(X11Atom::selectionWindowManager)) {
            name += std::to_string(screenNumber);
        }
        cookies.at(i) =
            xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    }
    for (std::size_t i = 0; i < atomNames.size(); ++i) {
        const X11Reply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(get(), cookies.at(i), nullptr));
        atoms_.at(i) = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
    if (!isLocal(descriptor())) {
        // Process ids of another machine mean nothing here.
        return;
    }
    serverProcess_ = peerProcess(descriptor());
    const auto* extension = xcb_get_extension_data(get(), &xcb_res_id);
    if (extension != nullptr && extension->present != 0) {
        const auto version = ask<xcb_res_query_version, xcb_res_query_version_reply>(1, 2);
        knowsClientProcesses_ =
            version && (version->server_major > 1 ||
                        (version->server_major == 1 && version->server_minor >= 2));
    }
}

std::vector<std::optional<ProcessId>>
X11Connection::processesOf(std::span<const xcb_window_t> resources) const {
    std::vector<std::optional<ProcessId>> result(resources.size());
    if (!knowsClientProcesses_ || resources.empty()) {
        return result;
    }
    std::map<std::uint32_t, std::optional<ProcessId>> byClient;
    std::vector<xcb_res_client_id_spec_t> specs;
    for (const xcb_window_t resource : resources) {
        if (byClient.try_emplace(clientBase(resource)).second) {
            specs.push_back({resource, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID});
        }
    }
    const auto reply = ask<xcb_res_query_client_ids, xcb_res_query_client_ids_reply>(
        static_cast<std::uint32_t>(specs.size()), specs.data());
    if (!reply) {
        return result;
    }
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        const bool isPid = (ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0;
        if (isPid && xcb_res_client_id_value_value_length(ids.data) > 0) {
            const auto process = static_cast<ProcessId>(*xcb_res_client_id_value_value(ids.data));
            if (process > 0) {
                byClient[clientBase(ids.data->spec.client)] = process;
            }
        }
    }
    std::ranges::transform(resources, result.begin(), [&](xcb_window_t resource) {
        return byClient.at(clientBase(resource));
    });
    return result;
}

std::span<const std::uint32_t> words(const X11Reply<xcb_get_property_reply_t>& reply) {
    if (!reply || reply->format != 32) {
        return {};
    }
    return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())),
            reply->value_len};
}

std::string text(const X11Reply<xcb_get_property_reply_t>& reply) {
    if (!reply || reply->format != 8) {
        return {};
    }
    std::string value(static_cast<const char*>(xcb_get_property_value(reply.get())),
                      reply->value_len);
    while (value.ends_with('\0')) {
        value.pop_back();
    }
    return value;
}

std::string windowManagerName(const X11Connection& connection) {
    if (!connection.isAlive()) {
        return {};
    }
    const auto read = [&](xcb_window_t window, X11Atom property, std::uint32_t words) {
        return connection.ask<xcb_get_property, xcb_get_property_reply>(
            0, window, connection.atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, words);
    };
    const auto check = read(connection.root(), X11Atom::netSupportingWmCheck, 1);
    constexpr std::uint32_t longest = 64;
    return words(check).empty() ? std::string()
                                : text(read(words(check).front(), X11Atom::netWmName, longest));
}

} // namespace calmora
