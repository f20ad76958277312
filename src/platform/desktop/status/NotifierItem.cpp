#include "platform/desktop/status/NotifierItem.h"

#include "platform/desktop/dbus/Messages.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
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
    if (message.interface() == propertiesInterface) {
        return handleProperties(message, connection);
    }
    const auto accept = [&](bool isRight) {
        return isRight ? answerCall(connection, message)
                       : refuseCall(connection, message, "Other types");
    };
    if (method == "Activate" || method == "ContextMenu" || method == "SecondaryActivate") {
        const auto in = readArguments<int, int>(message);
        if (in && method != "SecondaryActivate") {
            const Point place{std::get<0>(*in), std::get<1>(*in)};
            // The panel gets its answer first: a menu or a question may stay open for long.
            QTimer::singleShot(0, this, [this, place, isActivation = method == "Activate"] {
                (isActivation ? handlers_.activate : handlers_.contextMenu)(place);
            });
        }
        return accept(in.has_value());
    }
    if (method == "Scroll") {
        return accept(readArguments<int, QString>(message).has_value());
    }
    if (method == "ProvideXdgActivationToken") {
        return accept(readArgument<QString>(message).has_value());
    }
    return false;
}

bool NotifierItem::handleProperties(const QDBusMessage& message,
                                    const QDBusConnection& connection) {
    if (message.member() == "Get") {
        const auto in = readArguments<QString, QString>(message);
        const QVariant value = in && std::get<0>(*in) == interfaceName
                                   ? properties().value(std::get<1>(*in))
                                   : QVariant();
        return value.isValid()
                   ? answerCall(connection, message, {QVariant::fromValue(QDBusVariant(value))})
                   : refuseCall(connection, message, "No such property");
    }
    if (message.member() == "GetAll") {
        return readArgument<QString>(message) ? answerCall(connection, message, {properties()})
                                              : refuseCall(connection, message, "Other types");
    }
    return false;
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
