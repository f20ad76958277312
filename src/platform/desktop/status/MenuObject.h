// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"
#include "platform/desktop/status/DbusTypes.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace calmora {

/// The status item's menu for panels that draw it themselves (com.canonical.dbusmenu).
/// An entry keeps its id while there is one with its title, so that a click sent before a change of
/// the menu hits nothing else.
class MenuObject final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version MEMBER version_ CONSTANT)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status MEMBER status_ CONSTANT)
    Q_PROPERTY(QStringList IconThemePath MEMBER iconThemePath_ CONSTANT)

  public:
    static constexpr auto path = "/MenuBar";
    static constexpr auto interfaceName = "com.canonical.dbusmenu";

    /// `build` gives the entries each time the menu opens. `onOpen` is called when the panel opens
    /// and closes its drawing of the menu, `onShow` before that; some panels tell only one of them.
    MenuObject(QDBusConnection connection, std::function<std::vector<StatusMenuItem>()> build,
               std::function<void(bool)> onOpen, std::function<void()> onShow);

    /// Builds the entries again and signals what is different. True when anything is.
    bool update();

  public Q_SLOTS:
    // The interface's methods, under its names. Other types than these never arrive here.
    uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                   calmora::DbusMenuLayout& layout);
    [[nodiscard]] QList<calmora::DbusMenuProperties>
    GetGroupProperties(const QList<int>& ids, const QStringList& propertyNames) const;
    QDBusVariant GetProperty(int id, const QString& name);
    void Event(int id, const QString& eventId, const QDBusVariant& data, uint timestamp);
    QList<int> EventGroup(const QList<calmora::DbusMenuEvent>& events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);

  Q_SIGNALS:
    void ItemsPropertiesUpdated(const QList<calmora::DbusMenuProperties>& updatedProps,
                                const QList<calmora::DbusMenuRemoved>& removedProps);
    void LayoutUpdated(uint revision, int parent);
    void ItemActivationRequested(int id, uint timestamp);

  private:
    struct Entry {
        int id = 0;
        StatusMenuItem item;
        QVariantMap properties;
    };

    [[nodiscard]] std::vector<Entry> buildEntries();
    [[nodiscard]] const Entry* entry(int id) const;
    [[nodiscard]] QVariantMap propertiesOf(int id, const QStringList& names = {}) const;
    /// False when there is no such entry.
    bool handleEvent(int id, const QString& event);
    /// Answers the current call with an error.
    void refuse() const;
    [[nodiscard]] QString textDirection() const;

    uint version_ = 3;
    QString status_ = "normal";
    QStringList iconThemePath_;
    std::function<std::vector<StatusMenuItem>()> build_;
    std::function<void(bool)> onOpen_;
    std::function<void()> onShow_;
    std::map<std::string, int> ids_;
    int lastId_ = 0;
    std::vector<Entry> entries_;
    uint revision_ = 1;
};

} // namespace calmora
