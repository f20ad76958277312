#include "platform/qt/status/NotifierItem.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QTimer>

#include <utility>

namespace calmora {
namespace {

constexpr auto propertiesInterface = "org.freedesktop.DBus.Properties";

} // namespace

NotifierItem::NotifierItem(const QDBusConnection& connection, const QString& id,
                           const QString& title, const QString& menuPath, Handlers handlers)
    : connection_(connection), id_(id), title_(title), menuPath_(menuPath),
      handlers_(std::move(handlers)) {
    registerStatusTypes();
    connection_.registerVirtualObject(path, this);
}

NotifierItem::~NotifierItem() {
    connection_.unregisterObject(path);
}

void NotifierItem::announce() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher",
        "RegisterStatusNotifierItem");
    call.setArguments({connection_.baseService()});
    connection_.asyncCall(call);
}

void NotifierItem::setIcon(const Icon& icon) {
    icon_ = icon;
    connection_.send(QDBusMessage::createSignal(path, interfaceName, "NewIcon"));
}

QVariantMap NotifierItem::properties() const {
    const QVariant noPixmaps = QVariant::fromValue(QList<DbusPixmap>());
    return {
        {"Category", "ApplicationStatus"},
        {"Id", id_},
        {"Title", title_},
        {"Status", "Active"},
        {"WindowId", 0},
        {"IconThemePath", icon_.themePath},
        {"IconName", icon_.name},
        {"IconPixmap", QVariant::fromValue(icon_.pixmaps)},
        {"OverlayIconName", QString()},
        {"OverlayIconPixmap", noPixmaps},
        {"AttentionIconName", QString()},
        {"AttentionIconPixmap", noPixmaps},
        {"AttentionMovieName", QString()},
        {"ToolTip", QVariant::fromValue(DbusToolTip{{}, {}, title_, {}})},
        {"ItemIsMenu", false},
        {"Menu", QVariant::fromValue(QDBusObjectPath(menuPath_))},
    };
}

bool NotifierItem::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    const QString method = message.member();
    const QVariantList in = message.arguments();
    const auto answer = [&](const QVariantList& out) {
        if (message.isReplyRequired()) {
            connection.send(message.createReply(out));
        }
        return true;
    };
    if (message.interface() == propertiesInterface) {
        if (method == "Get" && in.value(0) == interfaceName) {
            const QVariant value = properties().value(in.value(1).toString());
            if (value.isValid()) {
                return answer({QVariant::fromValue(QDBusVariant(value))});
            }
        }
        return method == "GetAll" && answer({properties()});
    }
    const Point place{in.value(0).toInt(), in.value(1).toInt()};
    // The panel gets its answer first: a menu or a question may stay open for long.
    if (method == "Activate") {
        QTimer::singleShot(0, this, [this, place] { handlers_.activate(place); });
        return answer({});
    }
    if (method == "ContextMenu") {
        QTimer::singleShot(0, this, [this, place] { handlers_.contextMenu(place); });
        return answer({});
    }
    return (method == "SecondaryActivate" || method == "Scroll" ||
            method == "ProvideXdgActivationToken") &&
           answer({});
}

QString NotifierItem::introspect(const QString&) const {
    return R"xml(<interface name="org.kde.StatusNotifierItem">
  <property name="Category" type="s" access="read"/>
  <property name="Id" type="s" access="read"/>
  <property name="Title" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="WindowId" type="i" access="read"/>
  <property name="IconThemePath" type="s" access="read"/>
  <property name="IconName" type="s" access="read"/>
  <property name="IconPixmap" type="a(iiay)" access="read"/>
  <property name="OverlayIconName" type="s" access="read"/>
  <property name="OverlayIconPixmap" type="a(iiay)" access="read"/>
  <property name="AttentionIconName" type="s" access="read"/>
  <property name="AttentionIconPixmap" type="a(iiay)" access="read"/>
  <property name="AttentionMovieName" type="s" access="read"/>
  <property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
  <property name="ItemIsMenu" type="b" access="read"/>
  <property name="Menu" type="o" access="read"/>
  <method name="Activate">
    <arg name="x" type="i" direction="in"/>
    <arg name="y" type="i" direction="in"/>
  </method>
  <method name="SecondaryActivate">
    <arg name="x" type="i" direction="in"/>
    <arg name="y" type="i" direction="in"/>
  </method>
  <method name="ContextMenu">
    <arg name="x" type="i" direction="in"/>
    <arg name="y" type="i" direction="in"/>
  </method>
  <method name="Scroll">
    <arg name="delta" type="i" direction="in"/>
    <arg name="orientation" type="s" direction="in"/>
  </method>
  <method name="ProvideXdgActivationToken">
    <arg name="token" type="s" direction="in"/>
  </method>
  <signal name="NewTitle"/>
  <signal name="NewIcon"/>
  <signal name="NewAttentionIcon"/>
  <signal name="NewOverlayIcon"/>
  <signal name="NewToolTip"/>
  <signal name="NewStatus">
    <arg name="status" type="s"/>
  </signal>
</interface>
)xml";
}

} // namespace calmora
