#include "platform/qt/appearance/DesktopColorScheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

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

DesktopColorScheme::DesktopColorScheme() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    bus.connect(service, path, interface, "SettingChanged", this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, "Read");
    question << QString(appearance) << QString(colorScheme);
    const auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* call) {
                const QDBusPendingReply<QDBusVariant> answer = *call;
                if (answer.isValid()) {
                    tell(answer.value().variant());
                }
                call->deleteLater();
            });
}

Subscription DesktopColorScheme::onChanged(std::function<void(bool)> handler) {
    return changed_.connect(std::move(handler));
}

void DesktopColorScheme::settingChanged(const QString& settingNamespace, const QString& key,
                                        const QDBusVariant& value) {
    if (settingNamespace == appearance && key == colorScheme) {
        tell(value.variant());
    }
}

void DesktopColorScheme::tell(const QVariant& scheme) {
    // Read() wraps its answer in a second variant.
    const QVariant inner =
        scheme.canConvert<QDBusVariant>() ? qvariant_cast<QDBusVariant>(scheme).variant() : scheme;
    switch (inner.toUInt()) {
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
