#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace calmora {

/// A picture as status items carry it: (iiay), 32-bit ARGB in network byte order.
/// Source: freedesktop StatusNotifierItem, "Icons".
struct DbusPixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;
};

/// (sa(iiay)ss).  Source: freedesktop StatusNotifierItem, "ToolTip".
struct DbusToolTip {
    QString iconName;
    QList<DbusPixmap> icon;
    QString title;
    QString text;
};

/// One entry of a menu with what is below it: (ia{sv}av).  Source: com.canonical.dbusmenu.
struct DbusMenuLayout {
    int id = 0;
    QVariantMap properties;
    QList<DbusMenuLayout> children;
};

/// (ia{sv}).  Source: com.canonical.dbusmenu.
struct DbusMenuProperties {
    int id = 0;
    QVariantMap properties;
};

/// (ias).  Source: com.canonical.dbusmenu.
struct DbusMenuRemoved {
    int id = 0;
    QStringList properties;
};

/// (isvu).  Source: com.canonical.dbusmenu.
struct DbusMenuEvent {
    int id = 0;
    QString event;
};

QDBusArgument& operator<<(QDBusArgument& to, const DbusPixmap& value);
const QDBusArgument& operator>>(const QDBusArgument& from, DbusPixmap& value);
QDBusArgument& operator<<(QDBusArgument& to, const DbusToolTip& value);
const QDBusArgument& operator>>(const QDBusArgument& from, DbusToolTip& value);
QDBusArgument& operator<<(QDBusArgument& to, const DbusMenuLayout& value);
const QDBusArgument& operator>>(const QDBusArgument& from, DbusMenuLayout& value);
QDBusArgument& operator<<(QDBusArgument& to, const DbusMenuProperties& value);
const QDBusArgument& operator>>(const QDBusArgument& from, DbusMenuProperties& value);
QDBusArgument& operator<<(QDBusArgument& to, const DbusMenuRemoved& value);
const QDBusArgument& operator>>(const QDBusArgument& from, DbusMenuRemoved& value);
QDBusArgument& operator<<(QDBusArgument& to, const DbusMenuEvent& value);
const QDBusArgument& operator>>(const QDBusArgument& from, DbusMenuEvent& value);

/// Makes the types above known to Qt; may be called again.
void registerStatusTypes();

} // namespace calmora

Q_DECLARE_METATYPE(calmora::DbusPixmap)
Q_DECLARE_METATYPE(calmora::DbusToolTip)
Q_DECLARE_METATYPE(calmora::DbusMenuLayout)
Q_DECLARE_METATYPE(calmora::DbusMenuProperties)
Q_DECLARE_METATYPE(calmora::DbusMenuRemoved)
Q_DECLARE_METATYPE(calmora::DbusMenuEvent)
