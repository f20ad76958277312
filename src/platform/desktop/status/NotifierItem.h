// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geometry.h"
#include "platform/desktop/status/DbusTypes.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>

namespace calmora {

/// The status item as panels see it (org.kde.StatusNotifierItem).
/// Source: freedesktop StatusNotifierItem specification.
class NotifierItem final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category MEMBER category_ CONSTANT)
    Q_PROPERTY(QString Id MEMBER id_ CONSTANT)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status MEMBER status_)
    Q_PROPERTY(int WindowId MEMBER windowId_ CONSTANT)
    Q_PROPERTY(QString IconThemePath READ iconThemePath)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(QList<calmora::DbusPixmap> IconPixmap READ iconPixmap)
    Q_PROPERTY(QString OverlayIconName MEMBER noName_ CONSTANT)
    Q_PROPERTY(QList<calmora::DbusPixmap> OverlayIconPixmap MEMBER noPixmap_ CONSTANT)
    Q_PROPERTY(QString AttentionIconName MEMBER noName_ CONSTANT)
    Q_PROPERTY(QList<calmora::DbusPixmap> AttentionIconPixmap MEMBER noPixmap_ CONSTANT)
    Q_PROPERTY(QString AttentionMovieName MEMBER noName_ CONSTANT)
    Q_PROPERTY(calmora::DbusToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu MEMBER isMenu_ CONSTANT)
    Q_PROPERTY(QDBusObjectPath Menu MEMBER menu_ CONSTANT)

  public:
    static constexpr auto path = "/StatusNotifierItem";
    static constexpr auto interfaceName = "org.kde.StatusNotifierItem";

    struct Icon {
        /// Name of a themed icon for panels that recolour it; empty means none.
        QString name;
        /// Another folder in which panels look for the name.
        QString themePath;
        QList<DbusPixmap> pixmaps;
    };

    struct Handlers {
        /// A left click. What panels pass as its place differs.
        std::function<void(Point)> activate;
        /// A right click in a panel that draws no menu.
        std::function<void(Point)> contextMenu;
    };

    NotifierItem(const QDBusConnection& connection, const QString& id, const QString& title,
                 const QString& menuPath, Handlers handlers);

    /// Registers the item with the panel, without waiting for the answer.
    void announce();

    void setIcon(const Icon& icon);

    /// Whether the icon has a tool tip. Without one it has no title either, which some panels show
    /// in its place.
    void setToolTipShown(bool isShown);

    /// Panels show no hidden item.
    void setHidden(bool isHidden);

  public Q_SLOTS:
    // The interface's methods, under its names. Other types than these never arrive here.
    void Activate(int x, int y);
    void SecondaryActivate(int x, int y);
    void ContextMenu(int x, int y);
    void Scroll(int delta, const QString& orientation);
    void ProvideXdgActivationToken(const QString& token);

  Q_SIGNALS:
    void NewTitle();
    void NewIcon();
    void NewAttentionIcon();
    void NewOverlayIcon();
    void NewToolTip();
    void NewStatus(const QString& status);

  private:
    [[nodiscard]] QString iconThemePath() const { return icon_.themePath; }

    [[nodiscard]] QString iconName() const { return icon_.name; }

    [[nodiscard]] QList<DbusPixmap> iconPixmap() const { return icon_.pixmaps; }

    [[nodiscard]] QString title() const { return hasToolTip_ ? title_ : QString(); }

    [[nodiscard]] DbusToolTip toolTip() const { return {{}, {}, title(), {}}; }

    QDBusConnection connection_;
    QString category_ = "ApplicationStatus";
    QString id_;
    QString title_;
    bool hasToolTip_ = true;
    QString status_ = "Active";
    int windowId_ = 0;
    QString noName_;
    QList<DbusPixmap> noPixmap_;
    bool isMenu_ = false;
    QDBusObjectPath menu_;
    Handlers handlers_;
    Icon icon_;
};

/// Follows the panel's register of status items (org.kde.StatusNotifierWatcher). Never blocks.
class PanelWatcher {
  public:
    enum class Panel {
        /// The bus has not answered yet.
        unknown,
        /// No bus, or no register on it.
        absent,
        present,
        /// GNOME's shell has it, whose extensions open the menu on a left click.
        gnomeShell,
    };

    /// `onPanel` is called from the main loop when the bus has answered, then after each change of
    /// the register's owner.
    PanelWatcher(const QDBusConnection& connection, std::function<void(Panel)> onPanel);
    PanelWatcher(const PanelWatcher&) = delete;
    PanelWatcher& operator=(const PanelWatcher&) = delete;

    [[nodiscard]] Panel panel() const { return panel_; }

  private:
    void setOwner(const QString& owner);
    void setPanel(Panel panel);

    QDBusConnection connection_;
    std::function<void(Panel)> onPanel_;
    Panel panel_ = Panel::unknown;
    /// Unique name of the register's owner; empty when there is none.
    QString owner_;
    QDBusServiceWatcher watcher_;
};

} // namespace calmora
