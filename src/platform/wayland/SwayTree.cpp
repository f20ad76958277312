#include "platform/wayland/SwayTree.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>

namespace calmora {
namespace {

using Json = nlohmann::json;

constexpr std::size_t longestText = 1024;

Json parse(std::string_view text) {
    return Json::parse(text, nullptr, /*allow_exceptions=*/false);
}

/// A member of an object; null when it has none.
const Json& member(const Json& object, const char* name) {
    static const Json none;
    const auto found = object.is_object() ? object.find(name) : object.end();
    return found == object.end() ? none : *found;
}

std::string text(const Json& object, const char* name) {
    const Json& value = member(object, name);
    return value.is_string() ? value.get_ref<const std::string&>().substr(0, longestText) : "";
}

bool isTrue(const Json& object, const char* name) {
    const Json& value = member(object, name);
    return value.is_boolean() && value.get<bool>();
}

/// A positive number that the type can hold; 0 for anything else.
template <typename Number>
Number number(const Json& object, const char* name) {
    const Json& value = member(object, name);
    const auto given = value.is_number_unsigned() ? value.get<std::uint64_t>() : 0;
    return given <= std::uint64_t(std::numeric_limits<Number>::max()) ? static_cast<Number>(given)
                                                                      : Number{0};
}

/// The view of a container; one without an id when the node is something else.
SwayView viewOf(const Json& node) {
    SwayView view;
    const std::string shell = text(node, "shell");
    if (shell.empty()) {
        return view;
    }
    // Anything but a Wayland window may be one that closing would kill.
    if (shell != "xdg_shell") {
        view.x11Id = number<std::uint32_t>(node, "window");
    }
    view.id = number<WindowId>(node, "id");
    view.process = number<ProcessId>(node, "pid");
    view.isFloating = text(node, "type") == "floating_con";
    view.hasFocus = isTrue(node, "focused");
    view.applicationId = text(node, "app_id");
    const Json& properties = member(node, "window_properties");
    view.instance = text(properties, "instance");
    view.className = text(properties, "class");
    return view;
}

} // namespace

std::optional<std::vector<SwayView>> parseSwayTree(std::string_view text) {
    const Json tree = parse(text);
    if (calmora::text(tree, "type") != "root") {
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
            for (const Json& child : member(node, list)) {
                nodes.push_back(&child);
            }
        }
    }
    std::ranges::sort(views, {}, &SwayView::id);
    return views;
}

SwayChange parseSwayWindowEvent(std::string_view text) {
    const std::string change = calmora::text(parse(text), "change");
    if (change == "focus") {
        return SwayChange::focus;
    }
    return change == "new" || change == "close" || change == "floating" ? SwayChange::windows
                                                                        : SwayChange::none;
}

bool parseSwaySuccess(std::string_view text) {
    const Json reply = parse(text);
    return reply.is_array() && !reply.empty() &&
           std::ranges::all_of(reply, [](const Json& entry) { return isTrue(entry, "success"); });
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
