// SPDX-License-Identifier: MIT
#include "platform/gnome/backend/ShellMessages.h"

#include "platform/desktop/dbus/Messages.h"

#include <algorithm>

namespace calmora {
namespace {

/// More windows than anybody opens.
constexpr qsizetype mostWindows = 4096;
constexpr qsizetype longestText = 1024;

template <typename Value>
Value member(const QVariantMap& map, const char* key) {
    QVariant value = map.value(key);
    if (value.metaType() == QMetaType::fromType<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return readValue<Value>(value).value_or(Value{});
}

std::string text(const QVariantMap& map, const char* key) {
    return member<QString>(map, key).left(longestText).toStdString();
}

ShellWindow shellWindow(const QVariantMap& map) {
    return {.id = member<qulonglong>(map, "id"),
            .process = member<int>(map, "pid"),
            .isX11 = member<bool>(map, "x11"),
            .x11Id = member<uint>(map, "xid"),
            .type = member<uint>(map, "type"),
            .skipsTaskbar = member<bool>(map, "skip"),
            .canClose = member<bool>(map, "close"),
            .parent = member<qulonglong>(map, "parent"),
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
        // Without these a window could be taken for one of Wayland, which may be asked.
        if (map.contains("id") && map.contains("x11") && map.contains("type")) {
            windows.push_back(shellWindow(map));
        }
    }
    std::erase_if(windows, [](const ShellWindow& window) { return window.id == 0; });
    return windows;
}

ShellState shellState(const QVariantMap& values) {
    ShellState state;
    state.windows = shellWindows(member<ShellWindowValues>(values, "windows"));
    state.focus = member<qulonglong>(values, "focus");
    const auto rect = member<ShellRect>(values, "icon-rect");
    if (rect.width > 0 && rect.height > 0) {
        state.icon = Rect{rect.x, rect.y, rect.width, rect.height};
    }
    return state;
}

} // namespace calmora
