// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayTree.h"

#include "platform/wayland/Json.h"

#include <algorithm>

namespace calmora {
namespace {

/// The view of a container; one without an id when the node is something else.
SwayView viewOf(const Json& node) {
    SwayView view;
    const std::string shell = jsonText(node, "shell");
    if (shell.empty()) {
        return view;
    }
    // Anything but a Wayland window may be one that closing would kill.
    if (shell != "xdg_shell") {
        view.x11Id = jsonNumber<std::uint32_t>(node, "window");
    }
    view.id = jsonNumber<WindowId>(node, "id");
    view.process = jsonNumber<ProcessId>(node, "pid");
    view.isFloating = jsonText(node, "type") == "floating_con";
    view.hasFocus = isJsonTrue(node, "focused");
    view.isFullScreen =
        jsonNumber<int>(node, "fullscreen_mode") != 0 && isJsonTrue(node, "visible");
    view.applicationId = jsonText(node, "app_id");
    const Json& properties = jsonMember(node, "window_properties");
    view.instance = jsonText(properties, "instance");
    view.className = jsonText(properties, "class");
    return view;
}

} // namespace

std::optional<std::vector<SwayView>> parseSwayTree(std::string_view text) {
    const Json tree = parseJson(text);
    if (jsonText(tree, "type") != "root") {
        return std::nullopt;
    }
    std::vector<SwayView> views;
    std::vector<const Json*> nodes{&tree};
    while (!nodes.empty()) {
        const Json& node = *nodes.back();
        nodes.pop_back();
        if (SwayView view = viewOf(node); view.id != 0) {
            views.push_back(std::move(view));
        }
        for (const char* list : {"nodes", "floating_nodes"}) {
            for (const Json& child : jsonMember(node, list)) {
                nodes.push_back(&child);
            }
        }
    }
    std::ranges::sort(views, {}, &SwayView::id);
    return views;
}

SwayChange parseSwayWindowEvent(std::string_view text) {
    const std::string change = jsonText(parseJson(text), "change");
    if (change == "focus") {
        return SwayChange::focus;
    }
    return change == "new" || change == "close" || change == "floating" ? SwayChange::windows
                                                                        : SwayChange::none;
}

bool parseSwaySuccess(std::string_view text) {
    const Json reply = parseJson(text);
    return reply.is_array() && !reply.empty() && std::ranges::all_of(reply, [](const Json& entry) {
               return isJsonTrue(entry, "success");
           });
}

WindowId swayDialogParent(const SwayView& view, std::span<const SwayView> views,
                          WindowId newestAsked) {
    if (!view.isFloating || newestAsked == 0 || view.id <= newestAsked) {
        return 0;
    }
    WindowId parent = 0;
    for (const SwayView& other : views) {
        if (other.process == view.process && other.id <= newestAsked) {
            parent = std::max(parent, other.id);
        }
    }
    return parent;
}

} // namespace calmora
