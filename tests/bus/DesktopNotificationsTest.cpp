#include "platform/qt/notifications/DesktopNotifications.h"

#include "PrivateBus.h"

#include <gtest/gtest.h>

#include <QDBusArgument>

namespace calmora {
namespace {

constexpr auto serverName = "org.freedesktop.Notifications";
constexpr auto serverPath = "/org/freedesktop/Notifications";

/// Hears every call and answers none.
struct SilentObject : ScriptedObject {
    using ScriptedObject::ScriptedObject;

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        calls.push_back(message);
        return true;
    }
};

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
    ASSERT_EQ(
        callAndWait(server, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId").type(),
        QDBusMessage::ReplyMessage);
    ASSERT_TRUE(server.registerService(serverName));

    const UserNotification notice{"id", "Calmora", "Tom & <b>Jerry</b> was quit"};
    for (const QString& body : {QString("Tom &amp; &lt;b&gt;Jerry&lt;/b&gt; was quit"),
                                QString("Tom & <b>Jerry</b> was quit")}) {
        daemon.calls.clear();
        notifications.add(notice);
        EXPECT_TRUE(daemon.calls.empty()) << "nobody waits for the server";
        ASSERT_TRUE(waitFor([&] { return daemon.count("Notify") == 1; }));
        const QVariantList arguments = daemon.calls.back().arguments();
        ASSERT_EQ(daemon.calls.back().signature(), "susssasa{sv}i");
        EXPECT_EQ(arguments[0], "Calmora");
        EXPECT_EQ(arguments[1], 0U) << "replaces none";
        EXPECT_EQ(arguments[2], "org.example.Tool");
        EXPECT_EQ(arguments[3], "Calmora");
        EXPECT_EQ(arguments[4], body);
        EXPECT_TRUE(arguments[5].toStringList().isEmpty());
        EXPECT_EQ(qdbus_cast<QVariantMap>(arguments[6]),
                  (QVariantMap{{"desktop-entry", "org.example.Tool"}, {"suppress-sound", true}}));
        capabilities = {"body"};
    }
}

TEST(DesktopNotifications, loses_notices_without_a_bus_or_an_answer) {
    DesktopNotifications nowhere(QDBusConnection("not connected"), "org.example.Tool");
    nowhere.add({"id", "Calmora", "body"});

    PrivateBus bus;
    QDBusConnection server = bus.connect();
    ASSERT_TRUE(server.registerService(serverName));
    SilentObject silent(server, serverPath);
    {
        DesktopNotifications notifications(bus.connect(), "org.example.Tool");
        notifications.add({"1", "Calmora", "body"});
        notifications.add({"2", "Calmora", "body"});
        ASSERT_TRUE(waitFor([&] { return silent.count("GetCapabilities") == 2; }));
    }
    EXPECT_EQ(silent.count("Notify"), 0);
}

} // namespace
} // namespace calmora
