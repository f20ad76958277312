// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopColorScheme.h"

#include "platform/desktop/dbus/Messages.h"

namespace calmora {
namespace {

constexpr auto service = "org.freedesktop.portal.Desktop";
constexpr auto path = "/org/freedesktop/portal/desktop";
constexpr auto interface = "org.freedesktop.portal.Settings";
constexpr auto appearance = "org.freedesktop.appearance";
constexpr auto colorScheme = "color-scheme";

} // namespace

DesktopColorScheme::DesktopColorScheme(const QDBusConnection& sessionBus)
    : setting_(sessionBus,
               {.path = path,
                .interface = interface,
                .name = "SettingChanged",
                .arguments = {appearance, colorScheme},
                .service = service},
               [this](const QDBusMessage& signal) {
                   if (const auto change = readArguments<QString, QString, QDBusVariant>(signal)) {
                       notify(std::get<2>(*change).variant());
                   }
               }) {
    if (!sessionBus.isConnected()) {
        return;
    }
    callAsync(sessionBus, methodCall(service, path, interface, "Read", {appearance, colorScheme}),
              setting_, [this](const QDBusMessage& answer) {
                  if (const auto value = readArgument<QDBusVariant>(answer)) {
                      // Read() wraps its answer in a second variant.
                      notify(readValue<QDBusVariant>(value->variant()).value_or(*value).variant());
                  }
              });
}

void DesktopColorScheme::notify(const QVariant& scheme) const {
    constexpr uint dark = 1;
    constexpr uint light = 2;
    // Other values mean no preference.
    const uint preferred = readValue<uint>(scheme).value_or(0);
    if (preferred == dark || preferred == light) {
        changed_.emit(preferred == dark);
    }
}

} // namespace calmora
