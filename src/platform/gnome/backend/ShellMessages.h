// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geometry.h"
#include "platform/desktop/dbus/Messages.h"
#include "platform/desktop/status/DbusTypes.h"
#include "platform/gnome/ShellWindow.h"

#include <QList>
#include <QString>
#include <QVariantMap>

#include <optional>
#include <vector>

namespace calmora {

/// A rectangle of the shell: (iiii).
struct ShellRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    static auto fields(auto& self) { return std::tie(self.x, self.y, self.width, self.height); }
};

/// One entry of the icon's menu: (usb). An empty title makes a separator.
struct ShellMenuItem {
    uint id = 0;
    QString title;
    bool isEnabled = true;

    static auto fields(auto& self) { return std::tie(self.id, self.title, self.isEnabled); }

    friend bool operator==(const ShellMenuItem&, const ShellMenuItem&) = default;
};

using ShellWindowValues = QList<QVariantMap>;

/// Registers these types with Qt D-Bus; may be called again.
void registerShellTypes();

/// A member of a message's map; absent if it is missing or of another type.
template <typename Value>
[[nodiscard]] std::optional<Value> findMember(const QVariantMap& map, const char* key) {
    QVariant value = map.value(key);
    if (value.metaType() == QMetaType::fromType<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return readValue<Value>(value);
}

/// The same, or else the type's own zero.
template <typename Value>
[[nodiscard]] Value memberOf(const QVariantMap& map, const char* key) {
    return findMember<Value>(map, key).value_or(Value{});
}

/// The windows in a message, oldest first, and not more than 4096. One that does not tell its
/// number, its type, or whether it is of X11 is left out.
[[nodiscard]] std::vector<ShellWindow> shellWindows(const ShellWindowValues& values);

/// What the extension answers when the program attaches itself.
struct ShellState {
    std::vector<ShellWindow> windows;
    std::uint64_t focus = 0;
    std::optional<Rect> icon;
};

[[nodiscard]] ShellState shellState(const QVariantMap& values);

} // namespace calmora

Q_DECLARE_METATYPE(calmora::ShellRect)
Q_DECLARE_METATYPE(calmora::ShellMenuItem)
