#include "platform/desktop/status/DbusTypes.h"

#include "platform/desktop/dbus/Messages.h"

namespace calmora {
namespace {

/// Writes the fields of a structure in order.
template <typename... Fields>
QDBusArgument& write(QDBusArgument& to, const Fields&... fields) {
    to.beginStructure();
    (to << ... << fields);
    to.endStructure();
    return to;
}

/// Reads the fields of a structure in order.
template <typename... Fields>
const QDBusArgument& read(const QDBusArgument& from, Fields&... fields) {
    from.beginStructure();
    (from >> ... >> fields);
    from.endStructure();
    return from;
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& to, const DbusPixmap& value) {
    return write(to, value.width, value.height, value.bytes);
}

const QDBusArgument& operator>>(const QDBusArgument& from, DbusPixmap& value) {
    return read(from, value.width, value.height, value.bytes);
}

QDBusArgument& operator<<(QDBusArgument& to, const DbusToolTip& value) {
    return write(to, value.iconName, value.icon, value.title, value.text);
}

const QDBusArgument& operator>>(const QDBusArgument& from, DbusToolTip& value) {
    return read(from, value.iconName, value.icon, value.title, value.text);
}

QDBusArgument& operator<<(QDBusArgument& to, const DbusMenuLayout& value) {
    QList<QDBusVariant> children;
    for (const DbusMenuLayout& child : value.children) {
        children.append(QDBusVariant(QVariant::fromValue(child)));
    }
    return write(to, value.id, value.properties, children);
}

const QDBusArgument& operator>>(const QDBusArgument& from, DbusMenuLayout& value) {
    QList<QDBusVariant> children;
    read(from, value.id, value.properties, children);
    value.children.clear();
    for (const QDBusVariant& child : children) {
        if (const auto layout = readValue<DbusMenuLayout>(child.variant())) {
            value.children.append(*layout);
        }
    }
    return from;
}

QDBusArgument& operator<<(QDBusArgument& to, const DbusMenuProperties& value) {
    return write(to, value.id, value.properties);
}

const QDBusArgument& operator>>(const QDBusArgument& from, DbusMenuProperties& value) {
    return read(from, value.id, value.properties);
}

QDBusArgument& operator<<(QDBusArgument& to, const DbusMenuRemoved& value) {
    return write(to, value.id, value.properties);
}

const QDBusArgument& operator>>(const QDBusArgument& from, DbusMenuRemoved& value) {
    return read(from, value.id, value.properties);
}

QDBusArgument& operator<<(QDBusArgument& to, const DbusMenuEvent& value) {
    return write(to, value.id, value.event, QDBusVariant(0), 0U);
}

const QDBusArgument& operator>>(const QDBusArgument& from, DbusMenuEvent& value) {
    QDBusVariant data;
    uint time = 0;
    return read(from, value.id, value.event, data, time);
}

void registerStatusTypes() {
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
