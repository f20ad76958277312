#include "platform/desktop/shortcuts/XfceShortcuts.h"

#include "platform/desktop/dbus/Calls.h"
#include "platform/desktop/dbus/Messages.h"

namespace calmora {

DesktopShortcuts::Source xfceShortcuts(const QDBusConnection& bus) {
    return [bus] {
        constexpr int timeout = 150;
        QDBusMessage call = methodCall("org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf",
                                       "GetAllProperties", {"xfce4-keyboard-shortcuts", "/"});
        call.setAutoStartService(false);
        const QDBusMessage answer = bus.call(call, QDBus::Block, timeout);
        std::vector<XfceProperty> properties;
        const auto all = readArgument<QVariantMap>(answer).value_or(QVariantMap());
        for (auto at = all.cbegin(); at != all.cend(); ++at) {
            properties.push_back({at.key().toStdString(), readValue<bool>(at.value())});
        }
        return xfceAccelerators(properties);
    };
}

} // namespace calmora
