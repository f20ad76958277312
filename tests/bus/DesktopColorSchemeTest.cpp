// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopColorScheme.h"

#include "PrivateBus.h"

namespace calmora {
namespace {

TEST(DesktopColorScheme, FollowsThePortal) {
    const QString appearance = "org.freedesktop.appearance";
    const auto wrapped = [](uint value) { return QVariant::fromValue(QDBusVariant(value)); };
    PrivateBus bus;
    QDBusConnection other = bus.connect();
    ScriptedObject portal(other, "/org/freedesktop/portal/desktop", [&](const QDBusMessage&) {
        return QVariantList{QVariant::fromValue(QDBusVariant(wrapped(1)))};
    });
    ASSERT_TRUE(other.registerService("org.freedesktop.portal.Desktop"));
    DesktopColorScheme scheme(bus.connect());
    int changes = 0;
    const Subscription token = scheme.onChanged([&] { ++changes; });
    ASSERT_TRUE(loopUntil([&] { return scheme.preference() == ColorScheme::dark; }));
    const std::pair<uint, ColorScheme> rows[] = {
        {2, ColorScheme::light}, {0, ColorScheme::noPreference}, {1, ColorScheme::dark}};
    for (const auto& [value, expected] : rows) {
        portal.emitSignal("org.freedesktop.portal.Settings", "SettingChanged",
                          {appearance, "accent-color", wrapped(value + 1)});
        portal.emitSignal("org.freedesktop.portal.Settings", "SettingChanged",
                          {appearance, "color-scheme", wrapped(value)});
        EXPECT_TRUE(loopUntil([&, expected = expected] { return scheme.preference() == expected; }))
            << value;
    }
    EXPECT_EQ(changes, 4);
}

} // namespace
} // namespace calmora
