// SPDX-License-Identifier: MIT
#include "platform/desktop/dbus/Messages.h"

namespace calmora {

QString typeOf(const QVariant& value) {
    return value.metaType() == QMetaType::fromType<QDBusArgument>()
               ? value.value<QDBusArgument>().currentSignature()
               : QString::fromLatin1(QDBusMetaType::typeToSignature(value.metaType()));
}

bool readBounded(const QDBusArgument& from, QVariantMap& map) {
    from.beginMap();
    for (qsizetype read = 0; !from.atEnd() && read < longestList; ++read) {
        QString key;
        QVariant value;
        from.beginMapEntry();
        from >> key >> value;
        from.endMapEntry();
        map.insert(key, value);
    }
    const bool isWhole = from.atEnd();
    from.endMap();
    return isWhole;
}

bool readInto(QStringList& list, const QVariant& from) {
    if (from.metaType() != QMetaType::fromType<QStringList>()) {
        return false;
    }
    list = from.toStringList();
    return list.size() <= longestList;
}

} // namespace calmora
