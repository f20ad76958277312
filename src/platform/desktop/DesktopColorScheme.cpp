// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopColorScheme.h"

#include "platform/desktop/dbus/Messages.h"

#include <utility>

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
                       set(std::get<2>(*change).variant());
                   }
               }) {
    if (!sessionBus.isConnected()) {
        return;
    }
    callAsync(sessionBus, methodCall(service, path, interface, "Read", {appearance, colorScheme}),
              setting_, [this](const QDBusMessage& answer) {
                  if (const auto value = readArgument<QDBusVariant>(answer)) {
                      // Read() wraps its answer in a second variant.
                      set(readValue<QDBusVariant>(value->variant()).value_or(*value).variant());
                  }
              });
}

void DesktopColorScheme::set(const QVariant& scheme) {
    const auto value = readValue<uint>(scheme);
    if (!value) {
        return;
    }
    // Values that are not known yet mean no preference.
    const ColorScheme preference = *value == 1   ? ColorScheme::dark
                                   : *value == 2 ? ColorScheme::light
                                                 : ColorScheme::noPreference;
    if (std::exchange(preference_, preference) != preference) {
        changed_.emit();
    }
}

} // namespace calmora
