#pragma once

#include "platform/StatusItem.h"
#include "platform/desktop/status/DbusTypes.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace calmora {

/// The status item's menu for panels that draw it themselves (com.canonical.dbusmenu).
/// An entry keeps its number as long as there is one with its title, so that a click that crosses
/// a change of the menu hits nothing else.
class MenuObject : public QDBusVirtualObject {
  public:
    static constexpr auto path = "/MenuBar";
    static constexpr auto interfaceName = "com.canonical.dbusmenu";

    /// `build` gives the entries each time that the menu opens.
    /// `onOpen` is told when the panel opens its drawing of the menu and when it closes it.
    MenuObject(const QDBusConnection& connection,
               std::function<std::vector<StatusMenuItem>()> build,
               std::function<void(bool)> onOpen);
    ~MenuObject() override;

    /// Builds the entries again and tells the panel what is different. True when anything is.
    bool update();

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

  private:
    struct Entry {
        int id = 0;
        StatusMenuItem item;
        QVariantMap properties;
    };

    [[nodiscard]] std::vector<Entry> buildEntries();
    [[nodiscard]] const Entry* entry(int id) const;
    [[nodiscard]] QVariantMap propertiesOf(int id, const QStringList& names) const;
    [[nodiscard]] DbusMenuLayout layout(int id, int depth, const QStringList& names) const;
    /// False when there is no such entry.
    bool handleEvent(const DbusMenuEvent& event);
    [[nodiscard]] QVariant ownProperty(const QString& name) const;
    bool handleProperties(const QDBusMessage& message, const QDBusConnection& connection);

    /// What goes back to the caller; absent when the call has other types than the method, or asks
    /// for what there is not.
    using Answer = std::optional<QVariantList>;
    [[nodiscard]] Answer getLayout(const QDBusMessage& call);
    [[nodiscard]] Answer getGroupProperties(const QDBusMessage& call);
    [[nodiscard]] Answer getProperty(const QDBusMessage& call);
    [[nodiscard]] Answer takeEvent(const QDBusMessage& call);
    [[nodiscard]] Answer takeEventGroup(const QDBusMessage& call);
    [[nodiscard]] Answer aboutToShow(const QDBusMessage& call);
    [[nodiscard]] Answer aboutToShowGroup(const QDBusMessage& call);

    QDBusConnection connection_;
    std::function<std::vector<StatusMenuItem>()> build_;
    std::function<void(bool)> onOpen_;
    std::map<std::string, int> ids_;
    int lastId_ = 0;
    std::vector<Entry> entries_;
    uint revision_ = 1;
};

} // namespace calmora
