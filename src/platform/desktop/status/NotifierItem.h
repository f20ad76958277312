#pragma once

#include "platform/Geometry.h"
#include "platform/desktop/status/DbusTypes.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>

#include <functional>

namespace calmora {

/// The status item as panels see it (org.kde.StatusNotifierItem).
/// Source: freedesktop StatusNotifierItem specification.
class NotifierItem : public QDBusVirtualObject {
  public:
    static constexpr auto path = "/StatusNotifierItem";
    static constexpr auto interfaceName = "org.kde.StatusNotifierItem";

    struct Icon {
        /// Name for panels that draw it themselves; empty means none.
        QString name;
        /// Folder in which the name may be found, too.
        QString themePath;
        QList<DbusPixmap> pixmaps;
    };

    struct Handlers {
        /// A left click. The place is where the panel says it was, which panels see differently.
        std::function<void(Point)> activate;
        /// A right click in a panel that draws no menu.
        std::function<void(Point)> contextMenu;
    };

    NotifierItem(const QDBusConnection& connection, const QString& id, const QString& title,
                 const QString& menuPath, Handlers handlers);
    ~NotifierItem() override;

    /// Enters the item into the panel's register. The answer is not waited for.
    void announce();

    void setIcon(const Icon& icon);

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

  private:
    bool handleProperties(const QDBusMessage& message, const QDBusConnection& connection);
    [[nodiscard]] QVariantMap properties() const;

    QDBusConnection connection_;
    QString id_;
    QString title_;
    QString menuPath_;
    Handlers handlers_;
    Icon icon_;
};

} // namespace calmora
