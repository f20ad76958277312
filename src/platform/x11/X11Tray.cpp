// SPDX-License-Identifier: MIT
#include "platform/x11/X11Tray.h"

#include <set>
#include <utility>

namespace calmora {

namespace {

/// Deeper than any panel nests its icons.
constexpr int deepest = 10;

} // namespace

std::vector<xcb_window_t> trayIcons(const X11Connection& connection, xcb_window_t owner,
                                    std::span<const xcb_window_t> docks) {
    const std::uint32_t tray = connection.clientBase(owner);
    std::vector<xcb_window_t> icons;
    std::set<xcb_window_t> seen{connection.root()};
    std::vector<xcb_window_t> level{connection.root(), owner};
    level.insert(level.end(), docks.begin(), docks.end());
    for (int depth = 0; depth < deepest && !level.empty(); ++depth) {
        std::vector<xcb_query_tree_cookie_t> cookies;
        for (const xcb_window_t window : level) {
            cookies.push_back(xcb_query_tree(connection.get(), window));
        }
        std::vector<xcb_window_t> next;
        for (std::size_t i = 0; i < level.size(); ++i) {
            const X11Reply<xcb_query_tree_reply_t> tree(
                xcb_query_tree_reply(connection.get(), cookies[i], nullptr));
            if (!tree) {
                continue;
            }
            const std::span children(
                xcb_query_tree_children(tree.get()),
                static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
            const bool isTray = connection.clientBase(level[i]) == tray;
            for (const xcb_window_t child : children) {
                const bool isOfTray = connection.clientBase(child) == tray;
                if (isTray && !isOfTray) {
                    icons.push_back(child);
                } else if ((isOfTray || level[i] != connection.root()) &&
                           seen.insert(child).second) {
                    next.push_back(child);
                }
            }
        }
        level = std::move(next);
    }
    return icons;
}

} // namespace calmora
