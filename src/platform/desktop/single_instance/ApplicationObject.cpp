#include "platform/desktop/single_instance/ApplicationObject.h"

#include "platform/desktop/dbus/Messages.h"

#include <QDBusMessage>
#include <QTimer>

#include <utility>

namespace calmora {

ApplicationObject::ApplicationObject(const QDBusConnection& connection,
                                     const QString& applicationId, std::function<void()> onActivate)
    : connection_(connection), path_(pathOf(applicationId)), onActivate_(std::move(onActivate)) {
    connection_.registerVirtualObject(path_, this);
}

ApplicationObject::~ApplicationObject() {
    connection_.unregisterObject(path_);
}

QString ApplicationObject::pathOf(const QString& applicationId) {
    return '/' + QString(applicationId).replace('.', '/').replace('-', '_');
}

bool ApplicationObject::handleMessage(const QDBusMessage& message,
                                      const QDBusConnection& connection) {
    if (message.interface() != interfaceName) {
        return false;
    }
    const QString method = message.member();
    bool isRight = false;
    if (method == "Activate") {
        isRight = readArgument<QVariantMap>(message).has_value();
    } else if (method == "Open") {
        isRight = readArguments<QStringList, QVariantMap>(message).has_value();
    } else if (method == "ActivateAction") {
        isRight = readArguments<QString, QVariantList, QVariantMap>(message).has_value();
    } else {
        return false;
    }
    if (!isRight) {
        return refuseCall(connection, message, "Other types");
    }
    if (method != "ActivateAction") {
        // After the answer, for which the other start waits.
        QTimer::singleShot(0, this, onActivate_);
    }
    return answerCall(connection, message);
}

QString ApplicationObject::introspect(const QString&) const {
    return R"xml(<interface name="org.freedesktop.Application">
  <method name="Activate">
    <arg name="platform_data" type="a{sv}" direction="in"/>
  </method>
  <method name="Open">
    <arg name="uris" type="as" direction="in"/>
    <arg name="platform_data" type="a{sv}" direction="in"/>
  </method>
  <method name="ActivateAction">
    <arg name="action_name" type="s" direction="in"/>
    <arg name="parameter" type="av" direction="in"/>
    <arg name="platform_data" type="a{sv}" direction="in"/>
  </method>
</interface>
)xml";
}

} // namespace calmora
