#include "platform/desktop/shortcuts/XfceShortcuts.h"

#include "platform/desktop/dbus/Messages.h"

namespace calmora {

DesktopShortcuts::Source xfceShortcuts(const QDBusConnection& bus) {
    return [bus] {
        constexpr int patience = 150;
        QDBusMessage call = QDBusMessage::createMethodCall("org.xfce.Xfconf", "/org/xfce/Xfconf",
                                                           "org.xfce.Xfconf", "GetAllProperties");
        call.setArguments({"xfce4-keyboard-shortcuts", "/"});
        call.setAutoStartService(false);
        const QDBusMessage answer = bus.call(call, QDBus::Block, patience);
        std::vector<XfceProperty> properties;
        const auto all = readArgument<QVariantMap>(answer).value_or(QVariantMap());
        for (auto at = all.cbegin(); at != all.cend(); ++at) {
            properties.push_back({at.key().toStdString(), readValue<bool>(at.value())});
        }
        return xfceAccelerators(properties);
    };
}

} // namespace calmora
