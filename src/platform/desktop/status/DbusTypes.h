// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <tuple>

namespace calmora {

/// A picture as status items carry it: (iiay), 32-bit ARGB in network byte order.
/// Source: freedesktop StatusNotifierItem, "Icons".
struct DbusPixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;

    static auto fields(auto& self) { return std::tie(self.width, self.height, self.bytes); }
};

/// (sa(iiay)ss).  Source: freedesktop StatusNotifierItem, "ToolTip".
struct DbusToolTip {
    QString iconName;
    QList<DbusPixmap> icon;
    QString title;
    QString text;

    static auto fields(auto& self) {
        return std::tie(self.iconName, self.icon, self.title, self.text);
    }
};

/// One entry of a menu: (ia{sv}av).  Source: com.canonical.dbusmenu.
struct DbusMenuLayout {
    int id = 0;
    QVariantMap properties;
    /// Each a DbusMenuLayout.
    QList<QDBusVariant> children;

    static auto fields(auto& self) { return std::tie(self.id, self.properties, self.children); }
};

/// (ia{sv}).  Source: com.canonical.dbusmenu.
struct DbusMenuProperties {
    int id = 0;
    QVariantMap properties;

    static auto fields(auto& self) { return std::tie(self.id, self.properties); }
};

/// (ias).  Source: com.canonical.dbusmenu.
struct DbusMenuRemoved {
    int id = 0;
    QStringList properties;

    static auto fields(auto& self) { return std::tie(self.id, self.properties); }
};

/// (isvu).  Source: com.canonical.dbusmenu.
struct DbusMenuEvent {
    int id = 0;
    QString event;
    QDBusVariant data{0};
    uint time = 0;

    static auto fields(auto& self) { return std::tie(self.id, self.event, self.data, self.time); }
};

/// A type that is sent as a structure of its fields, in this order.
template <typename Type>
concept DbusStructure = requires(Type& value) { Type::fields(value); };

template <DbusStructure Type>
QDBusArgument& operator<<(QDBusArgument& to, const Type& value) {
    to.beginStructure();
    std::apply([&](const auto&... field) { (to << ... << field); }, Type::fields(value));
    to.endStructure();
    return to;
}

template <DbusStructure Type>
const QDBusArgument& operator>>(const QDBusArgument& from, Type& value) {
    from.beginStructure();
    std::apply([&](auto&... field) { (from >> ... >> field); }, Type::fields(value));
    from.endStructure();
    return from;
}

/// Registers the types above with Qt D-Bus; may be called again.
inline void registerStatusTypes() {
    qDBusRegisterMetaType<DbusPixmap>();
    qDBusRegisterMetaType<QList<DbusPixmap>>();
    qDBusRegisterMetaType<DbusToolTip>();
    qDBusRegisterMetaType<QList<QDBusVariant>>();
    qDBusRegisterMetaType<DbusMenuLayout>();
    qDBusRegisterMetaType<DbusMenuProperties>();
    qDBusRegisterMetaType<QList<DbusMenuProperties>>();
    qDBusRegisterMetaType<DbusMenuRemoved>();
    qDBusRegisterMetaType<QList<DbusMenuRemoved>>();
    qDBusRegisterMetaType<DbusMenuEvent>();
    qDBusRegisterMetaType<QList<DbusMenuEvent>>();
    qDBusRegisterMetaType<QList<QStringList>>();
}

} // namespace calmora

Q_DECLARE_METATYPE(calmora::DbusPixmap)
Q_DECLARE_METATYPE(calmora::DbusToolTip)
Q_DECLARE_METATYPE(calmora::DbusMenuLayout)
Q_DECLARE_METATYPE(calmora::DbusMenuProperties)
Q_DECLARE_METATYPE(calmora::DbusMenuRemoved)
Q_DECLARE_METATYPE(calmora::DbusMenuEvent)
