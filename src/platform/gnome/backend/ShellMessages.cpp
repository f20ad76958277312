// SPDX-License-Identifier: MIT
#include "platform/gnome/backend/ShellMessages.h"

#include <algorithm>

namespace calmora {
namespace {

/// More windows than anybody opens.
constexpr qsizetype mostWindows = 4096;
constexpr qsizetype longestText = 1024;

std::string text(const QVariantMap& map, const char* key) {
    return memberOf<QString>(map, key).left(longestText).toStdString();
}

ShellWindow shellWindow(const QVariantMap& map) {
    return {.id = memberOf<qulonglong>(map, "id"),
            .process = memberOf<int>(map, "pid"),
            .isX11 = memberOf<bool>(map, "x11"),
            .x11Id = memberOf<uint>(map, "xid"),
            .type = memberOf<uint>(map, "type"),
            .skipsTaskbar = memberOf<bool>(map, "skip"),
            .canClose = memberOf<bool>(map, "close"),
            .isFullScreen = memberOf<bool>(map, "full"),
            .parent = memberOf<qulonglong>(map, "parent"),
            .desktopId = text(map, "app"),
            .sandboxId = text(map, "sandbox"),
            .className = text(map, "class"),
            .instance = text(map, "instance"),
            .gtkApplicationId = text(map, "gtk-id"),
            .gtkBusName = text(map, "gtk-bus"),
            .gtkObjectPath = text(map, "gtk-path")};
}

} // namespace

void registerShellTypes() {
    qDBusRegisterMetaType<ShellRect>();
    qDBusRegisterMetaType<ShellMenuItem>();
    qDBusRegisterMetaType<QList<ShellMenuItem>>();
    qDBusRegisterMetaType<ShellWindowValues>();
}

std::vector<ShellWindow> shellWindows(const ShellWindowValues& values) {
    std::vector<ShellWindow> windows;
    for (const QVariantMap& map : values.first(std::min(values.size(), mostWindows))) {
        // One of X11 must not be taken for one of Wayland, which may be asked.
        if (findMember<bool>(map, "x11") && findMember<uint>(map, "type")) {
            windows.push_back(shellWindow(map));
        }
    }
    std::erase_if(windows, [](const ShellWindow& window) { return window.id == 0; });
    return windows;
}

ShellState shellState(const QVariantMap& values) {
    ShellState state;
    state.windows = shellWindows(memberOf<ShellWindowValues>(values, "windows"));
    state.focus = memberOf<qulonglong>(values, "focus");
    const auto rect = memberOf<ShellRect>(values, "icon-rect");
    if (rect.width > 0 && rect.height > 0) {
        state.icon = Rect{rect.x, rect.y, rect.width, rect.height};
    }
    return state;
}

} // namespace calmora
