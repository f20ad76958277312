#include "platform/desktop/status/DbusTypes.h"

#include <QDBusMetaType>

namespace calmora {

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
