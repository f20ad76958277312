// SPDX-License-Identifier: MIT
#include "platform/desktop/DesktopNotifications.h"

#include "PrivateBus.h"

namespace calmora {
namespace {

constexpr auto serverName = "org.freedesktop.Notifications";
constexpr auto serverPath = "/org/freedesktop/Notifications";

TEST(DesktopNotifications, hands_each_notice_over_silently_and_escaped_where_wanted) {
    PrivateBus bus;
    QDBusConnection server = bus.connect();
    DesktopNotifications notifications(bus.connect(), "org.example.Tool");
    QStringList capabilities{"body", "body-markup"};
    ScriptedObject daemon(server, serverPath, [&](const QDBusMessage& call) {
        return call.member() == "GetCapabilities" ? QVariantList{capabilities}
                                                  : QVariantList{uint{7}};
    });

    notifications.add({"lost", "Calmora", "There is no server yet."});
    // Answered after the notice's error, so the notice is over.
    callAndWait(server, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId");
    ASSERT_TRUE(server.registerService(serverName));

    const UserNotification notice{"id", "Calmora", "Tom & <b>Jerry</b> was quit"};
    for (const QString& body : {QString("Tom &amp; &lt;b&gt;Jerry&lt;/b&gt; was quit"),
                                QString("Tom & <b>Jerry</b> was quit")}) {
        daemon.calls.clear();
        notifications.add(notice);
        EXPECT_TRUE(daemon.calls.empty()) << "nobody waits for the server";
        ASSERT_TRUE(loopUntil([&] { return daemon.count("Notify") == 1; }));
        const QVariantList arguments = daemon.calls.back().arguments();
        ASSERT_EQ(daemon.calls.back().signature(), "susssasa{sv}i");
        EXPECT_EQ(arguments.first(6), (QVariantList{"Calmora", 0U, "org.example.Tool", "Calmora",
                                                    body, QStringList()}));
        EXPECT_EQ(qdbus_cast<QVariantMap>(arguments[6]),
                  (QVariantMap{{"desktop-entry", "org.example.Tool"}, {"suppress-sound", true}}));
        capabilities = {"body"};
    }
}

} // namespace
} // namespace calmora
