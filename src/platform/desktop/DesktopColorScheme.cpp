#include "platform/desktop/DesktopColorScheme.h"

#include "platform/desktop/dbus/AsyncCall.h"
#include "platform/desktop/dbus/Messages.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <utility>

namespace calmora {
namespace {

constexpr auto service = "org.freedesktop.portal.Desktop";
constexpr auto path = "/org/freedesktop/portal/desktop";
constexpr auto interface = "org.freedesktop.portal.Settings";
constexpr auto appearance = "org.freedesktop.appearance";
constexpr auto colorScheme = "color-scheme";

/// Values of color-scheme; 0 and unknown ones mean no preference.
enum Scheme : unsigned { preferDark = 1, preferLight = 2 };

} // namespace

DesktopColorScheme::DesktopColorScheme(const QDBusConnection& sessionBus) {
    QDBusConnection bus = sessionBus;
    if (!bus.isConnected()) {
        return;
    }
    bus.connect(service, path, interface, "SettingChanged", this,
                SLOT(settingChanged(QDBusMessage)));
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, "Read");
    question << QString(appearance) << QString(colorScheme);
    callAsync(bus, question, *this, [this](const QDBusMessage& answer) {
        if (const auto value = readArgument<QDBusVariant>(answer)) {
            // Read() wraps its answer in a second variant.
            tell(readValue<QDBusVariant>(value->variant()).value_or(*value).variant());
        }
    });
}

Subscription DesktopColorScheme::onChanged(std::function<void(bool)> handler) {
    return changed_.connect(std::move(handler));
}

void DesktopColorScheme::settingChanged(const QDBusMessage& signal) {
    const auto change = readArguments<QString, QString, QDBusVariant>(signal);
    if (change && std::get<0>(*change) == appearance && std::get<1>(*change) == colorScheme) {
        tell(std::get<2>(*change).variant());
    }
}

void DesktopColorScheme::tell(const QVariant& scheme) {
    switch (readValue<uint>(scheme).value_or(0)) {
    case preferDark:
        changed_.emit(true);
        break;
    case preferLight:
        changed_.emit(false);
        break;
    default:
        break;
    }
}

} // namespace calmora
