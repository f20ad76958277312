#include "platform/linux/desktop_shortcuts/XfceShortcuts.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QVariant>

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
        if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "a{sv}") {
            const auto all = qdbus_cast<QVariantMap>(answer.arguments().front());
            for (auto at = all.cbegin(); at != all.cend(); ++at) {
                const bool isFlag = at.value().metaType() == QMetaType::fromType<bool>();
                properties.push_back({at.key().toStdString(),
                                      isFlag ? std::optional(at.value().toBool()) : std::nullopt});
            }
        }
        return xfceAccelerators(properties);
    };
}

} // namespace calmora
